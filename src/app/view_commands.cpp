// Commands of the view: fit, zoom, move, redraw, axes and coordinates, interval refills, and the
// view's start-up steps.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/draw_input.h"

#include "platform/number_text.h"
#include "platform/tolerance.h"
#include "projection/navigation.h"
#include "projection/projection.h"
#include "projection/visibility.h"
#include "view/render.h"
#include "view/stroke_font.h"

#include <cmath>

namespace vorna {
namespace {

// The user is told once which box holds what, and which angle stays in force.
void RefuseAngleText(Program &p, int k) {
    static const char *const names[] = {"alfa x", "alfa y", "alfa z"};
    const std::string &text = p.form.Angolo[k].text;
    std::string message =
        "Angolo " + std::string(names[k]) + ": \"" + text + "\" non \xE8 un numero";
    if (text.find(',') != std::string::npos)
        message += " (il separatore decimale \xE8 il punto)";
    message += ". Resta l'angolo " + NumberText(p.view.lastAngles[k]) + ".";
    p.view.refusedAngleTexts[k] = text;
    p.ui.MessageBox(message, "ATTENZIONE", MsgIcon::Exclamation, MsgButtons::Ok);
}

// The angles that read as numbers; an empty or mistyped box keeps its last valid angle, so a
// half-typed angle never stops a redraw.
void ProjectFromAngles(Program &p) {
    std::array<double, 3> &angles = p.view.lastAngles;
    for (int k = 0; k < 3; ++k) {
        if (auto a = StrictNumber(p.form.Angolo[k].text)) {
            angles[k] = *a;
            p.view.refusedAngleTexts[k].reset();
        } else if (p.form.Angolo[k].text != p.view.refusedAngleTexts[k]) {
            RefuseAngleText(p, k);
        }
    }
    ProjectStructure(p.model, p.view, angles[0], angles[1], angles[2]);
}

VisibilityFilter FilterOfForm(const Program &p) {
    const FormVorna &f = p.form;
    VisibilityFilter filter;
    filter.x0 = LeadingNumber(f.IntX[0].text);
    filter.x1 = LeadingNumber(f.IntX[1].text);
    filter.y0 = LeadingNumber(f.IntY[0].text);
    filter.y1 = LeadingNumber(f.IntY[1].text);
    filter.z0 = LeadingNumber(f.IntZ[0].text);
    filter.z1 = LeadingNumber(f.IntZ[1].text);
    filter.nodes = f.NodiAtt.checked;
    filter.bars = f.AsteAtt.checked;
    filter.shells = f.GusciAtt.checked;
    filter.analogous = f.ElSelez.checked;
    filter.nonAnalogous = f.ElNonSelez.checked;
    filter.hideThinShells = p.displayOptions(opt::kHideThinShells) == 1;
    filter.minShellThickness = p.displayOptions(opt::kMinShellThickness);
    return filter;
}

void SetViewScaleNow(Program &p) {
    SetViewScale(p.model, ListedOf(p.connection), FilterOfForm(p), p.view, p.disegno);
}

// mode 1, 2, 3: one axis; 4: all three; anything else: nothing.
void FillIntervals(Program &p, int mode) {
    if (mode < 1 || mode > 4)
        return;
    const ModelExtent e = ComputeModelExtent(p.model);
    std::array<std::array<Control, 2> *, 3> rows = {&p.form.IntX, &p.form.IntY, &p.form.IntZ};
    for (int k = 0; k < 3; ++k) {
        if (mode != 4 && mode != k + 1)
            continue;
        (*rows[k])[0].text = NumberText(std::floor(e.min[k] + 0.5));
        (*rows[k])[1].text = NumberText(std::floor(e.max[k] + 0.5));
    }
}

void UpdateCoordinateLabels(Program &p) {
    p.form.LabCoord.visible = p.form.VisCoord.checked;
    p.form.Label6.visible = p.form.VisCoord.checked;
}

} // namespace

void DrawStructureNow(Program &p) {
    // After a failed load the tables hold only what was read before the failure: nothing is
    // drawn from them.
    if (!p.structureLoaded)
        return;
    DrawStructure(DrawInputOf(p), p.disegno);
}

void RedrawView(Program &p) {
    if (!p.structureLoaded)
        return;
    ProjectFromAngles(p);
    SetViewScaleNow(p);
    DrawStructureNow(p);
}

void Ottimizza_Click(Program &p) {
    p.view.zoomWindow = {};
    RedrawView(p);
}

void ZoomIn_Click(Program &p) {
    p.form.SottoFunAttiva.caption = "Zoom";
    p.navigation.zoomWindowPending = true;
    p.form.Disegno.pointer = Pointer::Cross;
}

void Sposta_Click(Program &p) {
    p.form.SottoFunAttiva.caption = "Sposta";
    p.navigation.movePending = true;
    p.form.Disegno.pointer = Pointer::Cross;
}

void Ridis_Click(Program &p) {
    // Asked for in so many words, the redraw tells again about a box it cannot read.
    p.view.refusedAngleTexts = {};
    RedrawView(p);
}

namespace {

void StandardView(Program &p, const char *ax, const char *ay, const char *az) {
    p.form.Angolo[0].text = ax;
    p.form.Angolo[1].text = ay;
    p.form.Angolo[2].text = az;
    Ottimizza_Click(p);
}

} // namespace

// Seen from above: model x to the right, y up.
void VistaPianta_Click(Program &p) {
    StandardView(p, "90", "0", "0");
}
// Model x to the right, z up.
void VistaFronte_Click(Program &p) {
    StandardView(p, "0", "0", "0");
}
// Model y to the right, z up.
void VistaLato_Click(Program &p) {
    StandardView(p, "0", "90", "0");
}
void VistaAssonometria_Click(Program &p) {
    StandardView(p, "30", "30", "0");
}

void ZoomToNode(Program &p, const std::string &name) {
    const StructureModel &m = p.model;
    int found = -1;
    for (int i = 0; i < m.nodeCount && found < 0; ++i)
        if (IntText(m.nodes[i].name) == name && IsLive(m.nodes[i]) && p.view.nodeShown[i])
            found = i;
    if (found < 0) {
        p.ui.MessageBox("Nodo " + name + " non trovato", "MESSAGGIO", MsgIcon::Information,
                        MsgButtons::Ok);
        return;
    }
    // A tenth of the fitted view, or the zoom in force when that is closer already.
    ViewWindow fitted;
    ShownExtents(m, p.view, fitted);
    double width = std::abs(fitted.xMax - fitted.xMin) / 10;
    double height = std::abs(fitted.yMax - fitted.yMin) / 10;
    const ViewWindow &z = p.view.zoomWindow;
    if (std::abs(z.xMax - z.xMin) >= kTolerance && std::abs(z.xMax - z.xMin) < width) {
        width = std::abs(z.xMax - z.xMin);
        height = std::abs(z.yMax - z.yMin);
    }
    const int point = m.nodes[found].pointIndex;
    const double x = ProjectedXOf(p.view, point), y = ProjectedYOf(p.view, point);
    p.view.zoomWindow = {x + width / 2, x - width / 2, y + height / 2, y - height / 2};
    RedrawView(p);
    p.navigation.markedNode = found;
}

void CentreViewOnNode(Program &p, int node) {
    const ViewWindow &w = std::fabs(p.view.zoomWindow.xMax - p.view.zoomWindow.xMin) >= kTolerance
                              ? p.view.zoomWindow
                              : p.view.shownWindow;
    const int point = p.model.nodes[node].pointIndex;
    MoveView(p.view, (w.xMax + w.xMin) / 2 - ProjectedXOf(p.view, point),
             (w.yMax + w.yMin) / 2 - ProjectedYOf(p.view, point));
    RedrawView(p);
}

void VisAssi_Click(Program &p) {
    p.form.VisAssi.checked = !p.form.VisAssi.checked;
    RedrawView(p);
}

void VisCoord_Click(Program &p) {
    p.form.VisCoord.checked = !p.form.VisCoord.checked;
    UpdateCoordinateLabels(p);
}

void TuttoX_Click(Program &p) {
    FillIntervals(p, 1);
}
void TuttoY_Click(Program &p) {
    FillIntervals(p, 2);
}
void TuttoZ_Click(Program &p) {
    FillIntervals(p, 3);
}

void LoadFont(Program &p) {
    if (auto message = LoadStrokeFont(p.folders.programsFolder, p.font, p.folders.programsPath))
        ShowMessage(p, *message);
}

void BuildFirstView(Program &p) {
    ProjectFromAngles(p);
    UpdateCoordinateLabels(p);
    FillIntervals(p, 4);
    SetViewScaleNow(p);
    DrawStructureNow(p);
}

} // namespace vorna
