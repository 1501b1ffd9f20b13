// Menus on the right button and the menu key. They offer the items of the menu bar, so that each
// thing has one name and one way of working.

#include "app/frmPPM.h"
#include "app/furnish.h"
#include "widgets/datagrid.h"

#include <QAction>
#include <QGroupBox>
#include <QListWidget>
#include <QWidget>

#include <initializer_list>

namespace {

void Offer(QWidget* where, std::initializer_list<QAction*> items) {
    for (QAction* item : items) {
        if (item != nullptr) {
            where->addAction(item);
            continue;
        }
        auto* line = new QAction(where);
        line->setSeparator(true);
        where->addAction(line);
    }
    where->setContextMenuPolicy(Qt::ActionsContextMenu);
}

}  // namespace

/// In the picture itself the right button measures: there the menu key opens the panel's menu, and
/// the right button does beside the picture.
void FurnishContextMenus(frmPPM& window) {
    Offer(window.lstFonder, {window.mnuDagskurs, window.mnuRita, nullptr, window.mnuKurvor,
                             window.mnuFarg, window.mnuAll});
    Offer(window.panDiagram,
          {window.mnuRita, window.mnuAll, nullptr, window.mnuKurvor, window.mnuFarg, nullptr,
           window.mnuVeckor, window.mnuMonth, nullptr, window.mnuPlus, window.mnuMinus});
    for (QWidget* grid :
         {static_cast<QWidget*>(window.DBGrid), static_cast<QWidget*>(window.GridPlott)}) {
        Offer(grid,
              {window.mnuDagskurs, window.mnuRita, nullptr, window.mnuTotal, window.mnuPEdit});
    }
}
