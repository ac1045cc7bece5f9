// The rows under the drawing, placed from the form and sized from their fonts where the design's
// room is too small for them: the angle row, and the status row under it.
#include "selection/selection_modes.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_ui.h"

#include <QMenuBar>
#include <QStyle>

#include <algorithm>

namespace vorna::qt {

namespace {

constexpr int kGap = 4; // between neighbours in a row, pixels

// The widest text a label of the rows can show, pixels.
int WidestText(const QWidget *label, std::initializer_list<const char *> captions,
               const std::string &current) {
    const QFontMetrics metrics(label->font());
    int widest = metrics.horizontalAdvance(ToQString(current));
    for (const char *caption : captions)
        widest = std::max(widest, metrics.horizontalAdvance(ToQString(caption)));
    return widest;
}

} // namespace

// The angle row from its place under the drawing down, as tall as its boxes' font needs; the axis
// letters hang below the boxes' text line as subscripts. Returns where the row ends, pixels.
int MainWindow::SyncAngleRow() {
    const FormVorna &f = program_->form;
    const double tpp = TwipsPerPixel();
    QWidget *box = Widget("Angolo(0)");
    const int top = TwipsToPixels(f.Angolo[0], tpp).top();
    const int frame = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, box);
    const int boxHeight =
        std::max(TwipsToPixels(f.Angolo[0], tpp).height(), box->fontMetrics().height() + 2 * frame);
    const int bottom = top + boxHeight + Widget("Label2(0)")->fontMetrics().descent();
    auto inRow = [&](const Control &c, int height) {
        const QRect place = TwipsToPixels(c, tpp);
        return QRect(place.left(), top, place.width(), height);
    };
    for (int i = 0; i < 3; ++i) {
        const std::string index = "(" + std::to_string(i) + ")";
        Widget("Angolo" + index)->setGeometry(inRow(f.Angolo[i], boxHeight));
        Widget("Label1" + index)->setGeometry(inRow(f.Label1[i], boxHeight));
        Widget("Label2" + index)->setGeometry(inRow(f.Label2[i], bottom - top));
    }
    // The selection's caption on the boxes' text line, widened like the status row's, and its
    // text after it.
    QWidget *caption = Widget("Label5");
    QRect label5 = inRow(f.Label5, boxHeight);
    label5.setWidth(std::max(label5.width(), WidestText(caption, {}, f.Label5.caption)));
    QRect selection = inRow(f.StringaSel, boxHeight);
    selection.setLeft(std::max(selection.left(), label5.right() + kGap));
    caption->setGeometry(label5);
    Widget("StringaSel")->setGeometry(selection);
    return bottom;
}

// The status row from the form's places, widened where a caption needs more room than the
// design gave it, so that every caption and the coordinate read-out stay whole. It starts under
// the angle row, in the client's bottom margin where that row took the room, and is shorter than
// designed, though never than its captions' text, where the window has no more.
void MainWindow::SyncStatusRow(int angleRowBottom) {
    const FormVorna &f = program_->form;
    const double tpp = TwipsPerPixel();
    constexpr int kPad = 4, kLine = 2;
    QWidget *function = Widget("FunAttiva"), *mode = Widget("SottoFunAttiva");
    QWidget *caption = Widget("Label6"), *readout = Widget("LabCoord");
    const QRect design = TwipsToPixels(f.Frame2[0], tpp);
    const int top = std::max(design.top(), angleRowBottom + 1);
    const int room = WindowSizeOfForm().height() - menuBar()->sizeHint().height() - top;
    const int height =
        std::max(std::min(design.height(), room), function->fontMetrics().height() + 2 * kLine);
    auto inBand = [&](const Control &c) {
        const QRect place = TwipsToPixels(c, tpp);
        return QRect(place.left(), top, place.width(), height);
    };
    const int functionText = WidestText(function,
                                        {FunctionCaption(ActiveFunction::AddNodes),
                                         FunctionCaption(ActiveFunction::RemoveNodes),
                                         FunctionCaption(ActiveFunction::ChooseBaseNode),
                                         FunctionCaption(ActiveFunction::RemoveBaseBars),
                                         FunctionCaption(ActiveFunction::ShowBarTypes)},
                                        f.FunAttiva.caption);
    const int modeText =
        WidestText(mode,
                   {ModeCaption(SelectionMode::Window), ModeCaption(SelectionMode::Material),
                    ModeCaption(SelectionMode::Name), ModeCaption(SelectionMode::Direct),
                    ModeCaption(SelectionMode::ConstraintCard), "Zoom", "Sposta"},
                   f.SottoFunAttiva.caption);
    QRect frame0 = inBand(f.Frame2[0]);
    frame0.setWidth(std::max(frame0.width(), functionText + 4 * kPad));
    QRect frame1 = inBand(f.Frame2[1]);
    frame1.moveLeft(std::max(frame1.left(), frame0.right() + kGap));
    frame1.setWidth(std::max(frame1.width(), modeText + 4 * kPad));
    QRect coord = inBand(f.FrameCoord);
    const int right = coord.right();
    coord.setLeft(std::max(coord.left(), frame1.right() + kGap));
    coord.setRight(std::max(right, coord.left()));
    QRect label6 = inBand(f.Label6).adjusted(0, kLine, 0, -kLine);
    label6.moveLeft(std::max(label6.left(), coord.left() + kPad));
    label6.setWidth(std::max(label6.width(), WidestText(caption, {}, f.Label6.caption) + kPad));
    QRect labCoord = inBand(f.LabCoord).adjusted(0, kLine, 0, -kLine);
    labCoord.moveLeft(std::max(labCoord.left(), label6.right() + kGap));
    labCoord.setRight(std::max(labCoord.left(), coord.right() - kPad));
    // Each caption inside its frame, its text in the middle.
    auto inside = [](const QRect &frame) { return frame.adjusted(kPad, kLine, -kPad, -kLine); };
    const std::pair<QWidget *, QRect> places[] = {
        {Widget("Frame2(0)"), frame0},
        {function, inside(frame0)},
        {Widget("Frame2(1)"), frame1},
        {mode, inside(frame1)},
        {Widget("FrameCoord"), coord},
        {caption, label6},
        {readout, labCoord},
        // The verdict in what the coordinate frame leaves free before its caption.
        {Widget("Esito"),
         QRect(coord.left() + kPad, label6.top(),
               std::max(0, label6.left() - kGap - coord.left() - kPad), label6.height())}};
    for (const auto &[widget, place] : places)
        widget->setGeometry(place);
    if (keepStatusRowWhole_) {
        // The narrowest window still shows a read-out of the largest coordinates and name.
        const int widest = WidestText(readout, {"-99999, -99999, -99999 [N20001]"}, "");
        const int minimum =
            frame1.right() + 2 * kGap + 2 * kPad + label6.width() + widest + (width() - right);
        if (minimumWidth() != minimum)
            setMinimumWidth(minimum);
    }
}

} // namespace vorna::qt
