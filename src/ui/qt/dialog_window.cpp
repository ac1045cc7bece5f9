// The program's dialogs as real modal Qt dialogs bound to their controls by name.
#include "ui/qt/dialog_window.h"

#include "ui/qt/dialog_table_model.h"
#include "ui/qt/qt_ui.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vorna::qt {

DialogWindow::DialogWindow(Dialog &dialog, QWidget *parent) : QDialog(parent), dialog_(dialog) {
    setWindowTitle(ToQString(dialog.Caption()));
    setModal(true);
    if (const LayoutBuilder build = LayoutOf(dialog.Name()))
        (this->*build)();
    for (Binding &b : bindings_)
        b.control = dialog_.Find(b.name);
    Show();
}

QWidget *DialogWindow::Bind(const std::string &name, QWidget *widget, BindingStyle style) {
    return AddBinding(bindings_, name, widget, style);
}

QWidget *DialogWindow::Button(const std::string &name) {
    auto *button = new QPushButton(this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, name] { Raise(name); });
    return Bind(name, button);
}

QWidget *DialogWindow::Check(const std::string &name) {
    auto *box = new QCheckBox(this);
    // The click and the button's release, whether by mouse or by keyboard.
    connect(box, &QCheckBox::clicked, this, [this, name] { Raise(name, true); });
    return Bind(name, box);
}

QWidget *DialogWindow::Option(const std::string &name) {
    auto *button = new QRadioButton(this);
    connect(button, &QRadioButton::clicked, this, [this, name] { Raise(name); });
    return Bind(name, button);
}

QWidget *DialogWindow::Swatch(const std::string &name, QWidget *parent) {
    auto *swatch = new QLabel(parent ? parent : this);
    swatch->setFixedSize(kSwatchSize, kSwatchSize);
    swatch->setAutoFillBackground(true);
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    return Bind(name, swatch, BindingStyle::Swatch);
}

QWidget *DialogWindow::Field(const std::string &name) {
    auto *edit = new QLineEdit(this);
    edit->setMaximumWidth(90);
    return Bind(name, edit);
}

QWidget *DialogWindow::Text(const std::string &name) {
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    return Bind(name, label);
}

void DialogWindow::Raise(const std::string &control, bool mouseUp) {
    for (Binding &b : bindings_)
        ReadBinding(b);
    dialog_.Click(control);
    if (mouseUp)
        dialog_.MouseUp(control);
    Show();
}

void DialogWindow::Show() {
    for (Binding &b : bindings_)
        ApplyBinding(b, 15);
    ShowTypeSwatches();
    // Ticking a row may change its cells, and more than its own.
    if (auto *model = table_ ? qobject_cast<DialogTableModel *>(table_->model()) : nullptr)
        model->Refresh();
    if (const Control *tab = tabs_ ? dialog_.Find("Schede") : nullptr) {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(std::max(0, ToQString(tab->text).toInt() - 1));
    }
    PaintSchema();
    if (dialog_.closed)
        done(QDialog::Accepted);
}

// Esc closes on its release, and only when it was pressed here too: the release of an Esc that
// closed a colour chooser above this dialog belongs to that chooser.
void DialogWindow::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        if (!event->isAutoRepeat())
            escapePressed_ = true;
        return;
    }
    QDialog::keyPressEvent(event);
}

void DialogWindow::keyReleaseEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        if (escapePressed_ && !event->isAutoRepeat()) {
            escapePressed_ = false;
            reject();
        }
        return;
    }
    QDialog::keyReleaseEvent(event);
}

// Esc, or the window's close button: nothing is taken over.
void DialogWindow::reject() {
    dialog_.Escape();
    QDialog::reject();
}

// Beside each type's row, the colour its nodes are drawn in, while the types are coloured.
void DialogWindow::ShowTypeSwatches() {
    const Control *colours = typeList_ ? dialog_.Find("ColoriTipi") : nullptr;
    if (!colours)
        return;
    for (int r = 0; r < typeList_->topLevelItemCount(); ++r) {
        QIcon icon;
        const QStringList rgb = r < static_cast<int>(colours->items.size())
                                    ? ToQString(colours->items[r]).split(',')
                                    : QStringList();
        if (rgb.size() == 3) {
            QPixmap swatch(kSwatchSize - 4, kSwatchSize - 4);
            swatch.fill(QColor(rgb[0].toInt(), rgb[1].toInt(), rgb[2].toInt()));
            icon = QIcon(swatch);
        }
        typeList_->topLevelItem(r)->setIcon(0, icon);
    }
}

void DialogWindow::PaintSchema() {
    if (!schema_)
        return;
    dialog_.Paint("Schema", schema_->Canvas());
    schema_->update();
}

bool DialogWindow::eventFilter(QObject *watched, QEvent *event) {
    if (watched == schema_ && event->type() == QEvent::Resize) {
        // Before the surface's own resize: give its canvas the new size first.
        schema_->Canvas().SetDpi(schema_->logicalDpiX(), schema_->logicalDpiY());
        schema_->Canvas().Resize(schema_->size());
        PaintSchema();
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        auto *swatch = qobject_cast<QWidget *>(watched);
        auto *mouse = static_cast<QMouseEvent *>(event);
        QVariant name = watched->property("swatch");
        if (swatch && name.isValid() && swatch->isEnabled() && mouse->button() == Qt::LeftButton &&
            swatch->rect().contains(mouse->position().toPoint()))
            Raise(name.toString().toStdString());
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace vorna::qt
