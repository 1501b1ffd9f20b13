#include "app/menuletters.h"

#include "app/rules/mnemonics.h"
#include "platform/caption.h"

#include <QAction>
#include <QMenu>

#include <cstddef>
#include <string>
#include <vector>

void MarkLetters(QMenu& menu) {
    std::vector<std::string> captions;
    for (const QAction* action : menu.actions()) captions.push_back(Caption(action));
    captions = WithMnemonics(captions);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        SetCaption(menu.actions()[static_cast<qsizetype>(i)], captions[i]);
    }
}

void UnmarkLetters(QMenu& menu) {
    for (QAction* action : menu.actions()) SetCaption(action, WithoutMnemonic(Caption(action)));
}
