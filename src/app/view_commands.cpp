// Commands of the view: fit, zoom, move, redraw, axes and coordinates, interval refills, and the
// view's start-up steps.
#include "app/commands.h"
#include "app/draw_input.h"

#include "platform/number_text.h"
#include "projection/navigation.h"
#include "projection/projection.h"
#include "projection/visibility.h"
#include "view/render.h"
#include "view/stroke_font.h"

#include <cmath>

namespace vorna {
namespace {

// The angles that read as numbers; an empty or mistyped box keeps its last valid angle, so a
// half-typed angle never stops a redraw.
void ProjectFromAngles(Program &p) {
    std::array<double, 3> &angles = p.view.lastAngles;
    for (int k = 0; k < 3; ++k)
        if (auto a = StrictNumber(p.form.Angolo[k].text))
            angles[k] = *a;
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
