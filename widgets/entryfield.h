#pragma once
// A text box that shows where the typing goes, lets only some characters in and says what Enter
// becomes.

#include <QLineEdit>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

class QContextMenuEvent;
class QDropEvent;
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

/// What becomes of a typed character: another one, itself, or nothing. Control keys come as their
/// codes: 3 copy, 8 backspace, 22 paste, 24 cut.
using CharacterFilter = std::function<std::optional<char32_t>(char32_t)>;

/// What becomes of a text that is pasted or dropped.
using TextFilter = std::function<std::string(std::string_view)>;

/// Typed, pasted, dropped and composed text goes through the same filter, unless there is another
/// one for pasted text.
class EntryField : public QLineEdit {
    Q_OBJECT

  public:
    explicit EntryField(QWidget* parent = nullptr);

    void SetFilter(CharacterFilter filter);
    void SetPasteFilter(TextFilter filter);
    /// While it says true no key and no pasted text gets in.
    void BlockWhile(std::function<bool()> blocked);
    /// Enter is consumed and becomes this. Without it Enter does what it does in any text box.
    void SetEnter(std::function<void()> enter);
    void Swallow(Qt::Key key);

  signals:
    void Entered();  ///< got the focus
    void Left();     ///< lost it

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    bool Blocked() const;

  private:
    QString Filtered(const QString& text) const;
    bool Passes(char32_t code) const;
    void InsertFiltered(const QString& text);
    void InsertPasted(const QString& text);
    void ShowFocus(bool focused);

    CharacterFilter filter_;
    TextFilter pasteFilter_;
    std::function<bool()> blocked_;
    std::function<void()> enter_;
    std::set<int> swallowed_;
};
