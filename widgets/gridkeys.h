#pragma once
// The keys that a grid and its cells know.

#include <QKeyEvent>
#include <Qt>

inline bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

inline bool IsTab(const QKeyEvent& key) {
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

inline bool ChangesRow(const QKeyEvent& key) {
    return key.key() == Qt::Key_Up || key.key() == Qt::Key_Down || key.key() == Qt::Key_PageUp ||
           key.key() == Qt::Key_PageDown;
}

inline bool MarksRow(const QKeyEvent& key) {
    return key.key() == Qt::Key_Space &&
           (key.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
}
