// The program's dialogs as real modal Qt dialogs, built for a Dialog as data and bound to its
// controls by name: each user action goes to the dialog and its new state comes back.
#pragma once

#include "platform/dialog.h"
#include "ui/qt/control_binding.h"
#include "ui/qt/surface_widget.h"

#include <QDialog>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>

#include <vector>

namespace vorna::qt {

class DialogWindow : public QDialog {
    Q_OBJECT
public:
    DialogWindow(Dialog &dialog, QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void reject() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *Bind(const std::string &name, QWidget *widget,
                  BindingStyle style = BindingStyle::Plain);
    QWidget *Button(const std::string &name);
    QWidget *Check(const std::string &name);
    QWidget *Option(const std::string &name);
    QWidget *Swatch(const std::string &name, QWidget *parent = nullptr);
    QWidget *Field(const std::string &name);
    QWidget *Text(const std::string &name);
    static constexpr int kSwatchSize = 18;
    using LayoutBuilder = void (DialogWindow::*)();
    // The builder of a dialog's layout, by the dialog's name (dialog_layouts.cpp).
    static LayoutBuilder LayoutOf(std::string_view dialog);
    void BuildFormOpt();
    void BuildFormOptInt();
    QWidget *List(const std::string &name, const char *titles, QWidget *parent = nullptr);
    void BuildFormTipiNodo();
    void BuildFormPercheNo();
    void BuildFormComandi();
    void BuildFormInformazioni();
    void BuildFormRevisione();
    // As large as wanted, but never larger than the screen the dialog opens on.
    void FitToScreen(QSize wanted);
    // The widgets' edits into the controls, the event, then the controls back onto the widgets.
    void Raise(const std::string &control, bool mouseUp = false);
    void Show();
    void PaintSchema();
    void ShowTypeSwatches();

    Dialog &dialog_;
    std::vector<Binding> bindings_;
    SurfaceWidget *schema_ = nullptr; // the dialog's picture, when it has one
    QTabWidget *tabs_ = nullptr;      // FormPercheNo's two pages
    QTreeWidget *typeList_ = nullptr; // FormTipiNodo's types
    QTableView *table_ = nullptr;     // a long table (FormRevisione's)
    bool escapePressed_ = false;
};

} // namespace vorna::qt
