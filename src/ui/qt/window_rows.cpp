// The rows under the drawing, placed from the form and sized from their fonts where the design's
// room is too small for them: the status row.
#include "selection/selection_modes.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_ui.h"

#include <algorithm>

namespace vorna::qt {

namespace {

// The widest text a label of the status row can show, pixels.
int WidestText(const QWidget *label, std::initializer_list<const char *> captions,
               const std::string &current) {
    const QFontMetrics metrics(label->font());
    int widest = metrics.horizontalAdvance(ToQString(current));
    for (const char *caption : captions)
        widest = std::max(widest, metrics.horizontalAdvance(ToQString(caption)));
    return widest;
}

} // namespace

// The status row from the form's places, widened where a caption needs more room than the
// design gave it, so that every caption and the coordinate read-out stay whole.
void MainWindow::SyncStatusRow() {
    const FormVorna &f = program_->form;
    const double tpp = TwipsPerPixel();
    constexpr int kPad = 4, kGap = 4;
    QWidget *function = Widget("FunAttiva"), *mode = Widget("SottoFunAttiva");
    QWidget *caption = Widget("Label6"), *readout = Widget("LabCoord");
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
    QRect frame0 = TwipsToPixels(f.Frame2[0], tpp);
    frame0.setWidth(std::max(frame0.width(), functionText + 4 * kPad));
    QRect frame1 = TwipsToPixels(f.Frame2[1], tpp);
    frame1.moveLeft(std::max(frame1.left(), frame0.right() + kGap));
    frame1.setWidth(std::max(frame1.width(), modeText + 4 * kPad));
    QRect coord = TwipsToPixels(f.FrameCoord, tpp);
    const int right = coord.right();
    coord.setLeft(std::max(coord.left(), frame1.right() + kGap));
    coord.setRight(std::max(right, coord.left()));
    QRect label6 = TwipsToPixels(f.Label6, tpp);
    label6.moveLeft(std::max(label6.left(), coord.left() + kPad));
    label6.setWidth(std::max(label6.width(), WidestText(caption, {}, f.Label6.caption) + kPad));
    QRect labCoord = TwipsToPixels(f.LabCoord, tpp);
    labCoord.moveLeft(std::max(labCoord.left(), label6.right() + kGap));
    labCoord.setRight(std::max(labCoord.left(), coord.right() - kPad));
    // Each caption inside its frame, at the design's height.
    auto inside = [&](const QRect &frame, const Control &label) {
        const QRect place = TwipsToPixels(label, tpp);
        return QRect(frame.left() + kPad, place.top(), frame.width() - 2 * kPad, place.height());
    };
    const std::pair<QWidget *, QRect> places[] = {
        {Widget("Frame2(0)"), frame0},
        {function, inside(frame0, f.FunAttiva)},
        {Widget("Frame2(1)"), frame1},
        {mode, inside(frame1, f.SottoFunAttiva)},
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
