#pragma once
// What every dialog has of the window that it stands over.

class QDialog;
class QMessageBox;

/// The letters of the window that it belongs to; smaller ones where the screen has no room for
/// those, but none under eight points. Nothing of it is wider or higher than the screen.
void DressAsWindow(QDialog& dialog);
/// Makes the box as wide as its title needs in the bar that the desktop puts over it.
void MakeRoomForTitle(QMessageBox& box);
