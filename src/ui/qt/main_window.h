// The main window FormVorna in Qt Widgets: menus, icon bar and the controls placed from the form,
// each event turned into a command on the program, and the form shown again afterwards.
#pragma once

#include "app/dispatch.h"
#include "app/program.h"
#include "platform/input.h"
#include "ui/qt/control_binding.h"
#include "ui/qt/surface_widget.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QSizeF>

#include <functional>
#include <string>
#include <vector>

class QAction;
class QMenu;
class QScrollArea;
class QToolBar;

namespace vorna::qt {

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow();

    vorna::Canvas &Disegno() { return disegno_->Canvas(); }
    vorna::Canvas &Picture1() { return picture1_->Canvas(); }

    // Whether the window opens at the form's size or the form takes the window's.
    enum class InitialSize { FromForm, FromWindow };
    // From now on the window shows this program's form and runs its commands. The form is laid
    // out at once, so that the surfaces have their size before start-up draws on them.
    void Attach(Program &program, InitialSize initialSize);
    // Shows the form: window size, controls, menu items, buttons, caption and overlays.
    void SyncFromForm();
    // Runs one command as every event does: edits into the form, the command, the form out.
    void Run(const std::function<void(Program &)> &command, BusyWhile busyWhile = BusyWhile::Event);
    double TwipsPerPixel() const;
    // Whether the window keeps a minimum width at which the status row is whole. The script
    // host turns it off: there the form's own size rule decides, as in the headless program.
    void KeepStatusRowWhole(bool keep);
    const std::vector<Binding> &Bindings() const { return bindings_; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct MenuAction {
        std::string name;
        QAction *action;
        Control *control = nullptr;
    };

    void BuildMenus();
    void AddMenuItem(QMenu *menu, const FormRow &row);
    void BuildToolbar(QWidget *client);
    void BuildControls(QWidget *client);
    void BuildSideBar(QWidget *client);
    QWidget *Bind(const std::string &name, QWidget *widget, BindingStyle style);
    void SyncMenus();
    void SyncOverlays();
    QWidget *Widget(std::string_view name) const;
    void SyncSideBar();
    void ScrollToSchema();
    int SyncAngleRow();
    void SyncStatusRow(int angleRowBottom);
    QSize WindowSizeOfForm() const;
    void TakeSizeFromWindow();
    void DisegnoMouse(QMouseEvent *event, MouseEvent::Kind kind);
    void DisegnoWheel(int steps, QPointF at, Qt::KeyboardModifiers modifiers);
    void DisegnoKey(QKeyEvent *event);

    Program *program_ = nullptr;
    SurfaceWidget *disegno_ = nullptr;
    SurfaceWidget *picture1_ = nullptr;
    QToolBar *toolbar_ = nullptr;
    QScrollArea *sideBar_ = nullptr;
    bool keepStatusRowWhole_ = true;
    // The base node and the form size the side bar last brought the schema into sight for.
    int schemaNode_ = -1;
    QSizeF schemaFormSize_;
    std::vector<Binding> bindings_;
    std::vector<MenuAction> actions_;
    std::vector<QKeySequence> shortcuts_;
    QSize appliedSize_; // the window size last set from the form
    double shownTwipsPerPixel_ = 0;
    bool running_ = false;
    bool redrawQueued_ = false; // a redraw after a resize is on its way
};

} // namespace vorna::qt
