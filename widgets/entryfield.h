#pragma once
// A text box that shows where the typing goes, lets only some characters
// in and says what Enter becomes.

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

/// What becomes of a typed character: another one, itself, or nothing.
using CharacterFilter = std::function<std::optional<char32_t>(char32_t)>;

/// What becomes of a text that is pasted or dropped; nothing refuses it.
using TextFilter = std::function<std::optional<std::string>(std::string_view)>;

/// Typed, pasted, dropped and composed text goes through the same filter. Pasted text is one line;
/// with a filter of its own it goes in as that one leaves it, or not at all. The keys that move,
/// erase, copy and paste work whatever the filter says; keys with Alt, Ctrl or Meta never type.
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
    // The focus that goes to another window and comes back from there counts for neither.
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
    void InsertFiltered(const QString& text);
    void InsertPasted(const QString& text);
    void ShowFocus(bool focused);

    CharacterFilter filter_;
    TextFilter pasteFilter_;
    std::function<bool()> blocked_;
    std::function<void()> enter_;
    std::set<int> swallowed_;
    bool away_ = false;  ///< the focus went to another window and is to come back
};
