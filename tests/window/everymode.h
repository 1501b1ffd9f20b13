#pragma once
// The ways into every mode of the window, by the keys and buttons that a saver has for them.

#include "entry/texts.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeySequence>
#include <QTableView>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class EveryMode : public WindowTest {
  protected:
    struct Mode {
        std::string_view name;
        std::function<void()> reach;  ///< in a window that has just come up
    };

    EveryMode() {
        SetToday(2026, 3, 10);  // the window starts on 1 April 2025
        ComeUp();
    }

    /// A new window on a new file.
    void ComeUp() {
        std::vector<TestHolding> holdings = TwoHoldings();
        holdings[0].points = {{45849, 4}, {45949, 8}, {46049, 6}};
        MakeFile(holdings);
        Start();
    }

    std::vector<Mode> Modes() {
        return {
            {"list of prices", [] {}},
            {"price typed", [this] { TypeForFirst("1"); }},
            {"after Enter in the list", [this] { EnterInList(); }},
            {"diagram with buttons", [this] { Press(Qt::Key_F11); }},
            {"diagram", [this] { Press(Qt::Key_Escape); }},
            {"colour", [this] { ChooseBy(Qt::Key_F9); }},
            {"curves", [this] { ChooseBy(Qt::Key_F12); }},
            {"curves chosen", [this] { CollectTwo(); }},
            {"totals", [this] { ShowTotals(); }},
            {"plot data", [this] { Window().mnuPEdit->trigger(); }},
            {"safety copies", [this] { ShowCopies(); }},
            {"day's prices", [this] { Press(Qt::Key_F6); }},
            {"pasted prices", [this] { PasteColumn(); }},
            {"overview", [this] { Press(Qt::Key_F7); }},
            {"holdings", [this] { Click(Window().cmdPPMData); }},
            {"a cell of the holdings", [this] { EditCell(); }},
            {"notice of new shares", [this] { OpenNotice(); }},
        };
    }

    void TypeForFirst(const std::string& text) {
        ChooseFund(0);
        Window().txtValue->setFocus();
        Type(text);
    }
    void EnterInList() {
        ChooseFund(0);
        PressIn(Window().lstFonder, Qt::Key_Return);
    }
    void ChooseBy(Qt::Key key) {
        Press(Qt::Key_F11);
        Press(key);
    }
    void CollectTwo() {
        ChooseBy(Qt::Key_F12);
        ChooseFund(0);
        ChooseFund(1);
    }
    void ShowTotals() {
        Window().mnuTotal->trigger();
        Window().lstTotal->setCurrentRow(0);
        PressIn(Window().lstTotal, Qt::Key_Space);
    }
    void ShowCopies() {
        ChooseFund(0);
        TypePrice("101");
        Window().mnuAterstall->trigger();
    }
    void OpenNotice() {
        Click(Window().cmdPPMData);
        outside.dialogs
            .Expect(texts::AskNewShares, Buttons::YesNo, Icon::Information, DefaultButton::Second)
            .Answer(Answer::Yes);
        Click(Window().cmdNyAndel);
    }
    void EditCell() {
        Click(Window().cmdPPMData);
        QTableView& view = Window().DBGrid->View();
        view.setFocus();
        view.setCurrentIndex(view.model()->index(1, 0));
        QTest::keyClick(&view, Qt::Key_F2);
    }
    void PasteColumn() {
        Press(Qt::Key_F6);
        QGuiApplication::clipboard()->setText(QStringLiteral("111\n112"));
        QTest::keySequence(Window().txtNyKurs, QKeySequence::Paste);
    }
};
