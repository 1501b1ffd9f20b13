#pragma once
// The help viewer's window: contents and search at the left, the page at the right.

#include "help/helpbook.h"

#include <QMainWindow>

#include <string>
#include <string_view>

class QAction;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

class HelpWindow final : public QMainWindow {
  public:
    /// Shows the book's first page.
    explicit HelpWindow(HelpBook book, QWidget* parent = nullptr);

    void ShowPage(std::string_view id);  ///< an unknown one changes nothing
    std::string CurrentPage() const;     ///< its id

  private:
    void FurnishToolBar();
    QWidget* FurnishLeft();
    void FillContents();
    void ListenTo();

    void Go(std::size_t page);
    void PageChanged(const QUrl& page);
    void MarkContents(std::string_view id);
    void MarkFoundWords();
    void FollowLink(const QUrl& link);
    void Search(const QString& query);
    void OpenHit(const QListWidgetItem* item);
    void OpenContents(const QTreeWidgetItem* item);
    void Zoom(int steps);
    std::string PageHtml(std::string_view id) const;

    HelpBook book_;
    int zoom_ = 0;

    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* home_ = nullptr;
    QLineEdit* search_ = nullptr;
    QStackedWidget* left_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QListWidget* hits_ = nullptr;
    QTextBrowser* page_ = nullptr;
};
