// What the window's tests share: a widget of the real window by the name of its control.
#pragma once

#include "ui/qt/main_window.h"

#include <gtest/gtest.h>

#include <string>

namespace vorna::test {

inline QWidget *BoundWidget(const qt::MainWindow &window, const std::string &name) {
    for (const qt::Binding &b : window.Bindings())
        if (b.name == name)
            return b.widget;
    ADD_FAILURE() << name << " has no widget";
    return nullptr;
}

// Where a widget is in the window's client area, pixels, whatever container holds it.
inline QRect InClient(const qt::MainWindow &window, const QWidget *w) {
    return {w->mapTo(window.centralWidget(), QPoint()), w->size()};
}

} // namespace vorna::test
