#pragma once
// The status bar: panels numbered from 1, each with a text and a tag.

#include <QWidget>

#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QResizeEvent;

/// A text too long for its panel is elided and shown whole as the panel's tooltip.
/// A panel that is not there: Error SubscriptOutOfRange.
class StatusPanels : public QWidget {
    Q_OBJECT

  public:
    explicit StatusPanels(int panels, QWidget* parent = nullptr);

    int Count() const;
    void SetText(int panel, std::string_view text);
    std::string Text(int panel) const;
    void SetTag(int panel, std::string_view tag);
    std::string Tag(int panel) const;
    /// Stands over all panels until it is "".
    void SetNotice(std::string_view text);
    std::string Notice() const;
    /// What the panel's text is about, to a screen reader.
    void SetSpokenName(int panel, std::string_view name);
    /// In logical pixels; the panel gets `share` parts of the room that is left.
    void SetMinimumPanelWidth(int panel, int width, int share = 0);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Panel;
    Panel& At(int panel) const;
    std::vector<Panel*> panels_;
    Panel* notice_;
};
