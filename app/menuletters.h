#pragma once
// The letters that lead to a menu's items, marked while it is open: closed, its captions stay as
// they are given.

class QMenu;

/// Marks those that have none yet.
void MarkLetters(QMenu& menu);
void UnmarkLetters(QMenu& menu);
