#include "help/helpwindow.h"

#include "base/text.h"
#include "help/helplook.h"
#include "help/texts.h"
#include "platform/qttext.h"
#include "widgets/colours.h"

#include <QAction>
#include <QApplication>
#include <QFont>
#include <QFrame>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSize>
#include <QSizePolicy>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr int kMaximumZoom = 10;
constexpr int kMinimumZoom = -4;

double TextSize() {
    constexpr double kOrdinaryPoints = 9;
    const double points = QApplication::font().pointSizeF();
    return points > 0 ? points / kOrdinaryPoints : 1;
}

/// With the bar that the desktop puts over it.
QSize RoomForWindow(const QScreen& screen) {
    const int bar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return screen.availableSize() - QSize(0, bar);
}

std::string Link(const HelpPage& page, std::string_view before) {
    return "<a href=\"" + page.id + "\">" + std::string(before) + page.title + "</a>";
}

/// Shows pages that are read by their ids, and keeps the history of them.
class PageBrowser final : public QTextBrowser {
  public:
    using HtmlOf = std::function<std::string(std::string_view id)>;

    PageBrowser(HtmlOf htmlOf, QWidget* parent)
        : QTextBrowser(parent), htmlOf_(std::move(htmlOf)) {}

    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
        return ToQt(htmlOf_(FromQt(name.toString())));
    }

  private:
    HtmlOf htmlOf_;
};

}  // namespace

HelpWindow::HelpWindow(HelpBook book, QWidget* parent)
    : QMainWindow(parent), book_(std::move(book)) {
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(ToQt(helptexts::Window));
    FurnishToolBar();
    page_ = new PageBrowser([this](std::string_view id) { return PageHtml(id); }, this);
    page_->setObjectName(QStringLiteral("page"));
    page_->setAccessibleName(ToQt(helptexts::Page));
    page_->verticalScrollBar()->setAccessibleName(ToQt(helptexts::ScrollPage));
    page_->horizontalScrollBar()->setAccessibleName(ToQt(helptexts::ScrollAcross));
    page_->setOpenLinks(false);
    page_->setFrameShape(QFrame::NoFrame);
    page_->document()->setDefaultStyleSheet(helplook::PageStyle(TextSize()));
    page_->document()->setDocumentMargin(helplook::kPageMargin);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(FurnishLeft());
    splitter->addWidget(page_);
    splitter->setStretchFactor(1, 1);
    splitter->setHandleWidth(1);
    splitter->setSizes({helplook::kLeftWidth, helplook::kWidth - helplook::kLeftWidth});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);
    resize(QSize(helplook::kWidth, helplook::kHeight).boundedTo(RoomForWindow(*screen())));
    FillContents();
    ListenTo();
    Go(0);
    page_->setFocus();
}

void HelpWindow::FurnishToolBar() {
    auto* bar = new QToolBar(this);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(bar);
    const auto add = [&](const char* name, std::string_view text, std::string_view tip,
                         const char* keys) {
        QAction* action = bar->addAction(ToQt(text));
        action->setObjectName(QString::fromLatin1(name));
        action->setToolTip(ToQt(tip));
        action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        return action;
    };
    back_ = add("back", helptexts::Back, helptexts::BackTip, "Alt+Left");
    forward_ = add("forward", helptexts::Forward, helptexts::ForwardTip, "Alt+Right");
    home_ = add("home", helptexts::Home, helptexts::HomeTip, "Alt+Home");
    auto* space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    search_ = new QLineEdit(bar);
    search_->setObjectName(QStringLiteral("search"));
    search_->setPlaceholderText(ToQt(helptexts::Search));
    search_->setAccessibleName(ToQt(helptexts::Search));
    search_->setToolTip(ToQt(helptexts::SearchTip));
    search_->setClearButtonEnabled(true);
    for (auto* clear : search_->findChildren<QToolButton*>()) {
        clear->setAccessibleName(ToQt(helptexts::ClearSearch));
    }
    search_->setFixedWidth(helplook::kSearchWidth);
    bar->addWidget(search_);
}

QWidget* HelpWindow::FurnishLeft() {
    left_ = new QStackedWidget(this);
    contents_ = new QTreeWidget(left_);
    contents_->setObjectName(QStringLiteral("contents"));
    contents_->setAccessibleName(ToQt(helptexts::Contents));
    contents_->setHeaderHidden(true);
    contents_->setFrameShape(QFrame::NoFrame);
    contents_->setRootIsDecorated(false);
    contents_->setItemsExpandable(false);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hits_ = new QListWidget(left_);
    hits_->setObjectName(QStringLiteral("hits"));
    hits_->setAccessibleName(ToQt(helptexts::Hits));
    hits_->setFrameShape(QFrame::NoFrame);
    hits_->setWordWrap(true);
    hits_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    left_->addWidget(contents_);
    left_->addWidget(hits_);
    left_->setMinimumWidth(helplook::kLeftMinimum);
    return left_;
}

void HelpWindow::FillContents() {
    QTreeWidgetItem* section = nullptr;
    QFont bold = contents_->font();
    bold.setBold(true);
    for (std::size_t i = 0; i < book_.Pages().size(); ++i) {
        const HelpPage& page = book_.Pages()[i];
        if (section == nullptr || FromQt(section->text(0)) != page.section) {
            section = new QTreeWidgetItem(contents_, {ToQt(page.section)});
            section->setFont(0, bold);
            section->setFlags(Qt::ItemIsEnabled);
            section->setTextAlignment(0, Qt::AlignLeft | Qt::AlignBottom);
            section->setSizeHint(0, QSize(0, helplook::kSectionHeight));
        }
        auto* item = new QTreeWidgetItem(section, {ToQt(page.title)});
        item->setData(0, kPageRole, static_cast<int>(i));
    }
    contents_->expandAll();
}

void HelpWindow::ListenTo() {
    connect(back_, &QAction::triggered, page_, &QTextBrowser::backward);
    connect(forward_, &QAction::triggered, page_, &QTextBrowser::forward);
    connect(page_, &QTextBrowser::backwardAvailable, back_, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward_, &QAction::setEnabled);
    connect(page_, &QTextBrowser::sourceChanged, this, &HelpWindow::PageChanged);
    connect(home_, &QAction::triggered, this, [this] { Go(0); });
    connect(page_, &QTextBrowser::anchorClicked, this, &HelpWindow::FollowLink);
    connect(contents_, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) { OpenContents(item); });
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::Search);
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (hits_->count() > 0) hits_->setCurrentRow(0);
    });
    connect(hits_, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* item) { OpenHit(item); });
    const auto onKeys = [this](const QKeySequence& keys, auto work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    onKeys(QKeySequence::Find, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    onKeys(QKeySequence(Qt::Key_Escape), [this] {
        search_->clear();
        page_->setFocus();
    });
    onKeys(QKeySequence::ZoomIn, [this] { Zoom(1); });
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { Zoom(1); });
    onKeys(QKeySequence::ZoomOut, [this] { Zoom(-1); });
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { Zoom(-zoom_); });
}

void HelpWindow::ShowPage(std::string_view id) {
    if (const auto page = book_.Find(id)) Go(*page);
}

std::string HelpWindow::CurrentPage() const {
    return FromQt(page_->source().toString());
}

void HelpWindow::Go(std::size_t page) {
    page_->setSource(QUrl(ToQt(book_.Pages()[page].id)), QTextDocument::HtmlResource);
}

/// The browser tells of a page before it counts it as its source.
void HelpWindow::PageChanged(const QUrl& page) {
    MarkContents(FromQt(page.toString()));
    MarkFoundWords();
}

std::string HelpWindow::PageHtml(std::string_view id) const {
    const auto& pages = book_.Pages();
    const std::size_t page = book_.Find(id).value_or(0);
    std::string html = pages[page].html + "<hr><table width=\"100%\" class=\"turn\"><tr><td>";
    if (page > 0) html += Link(pages[page - 1], helptexts::Previous);
    html += "</td><td align=\"right\">";
    if (page + 1 < pages.size()) html += Link(pages[page + 1], helptexts::Next);
    return html + "</td></tr></table>";
}

void HelpWindow::MarkContents(std::string_view id) {
    const QSignalBlocker quiet(contents_);
    const int current = static_cast<int>(book_.Find(id).value_or(0));
    for (QTreeWidgetItemIterator at(contents_); *at != nullptr; ++at) {
        const QVariant page = (*at)->data(0, kPageRole);
        if (page.isValid() && page.toInt() == current) {
            contents_->setCurrentItem(*at);
            contents_->scrollToItem((*at)->parent());
            contents_->scrollToItem(*at);
        }
    }
}

void HelpWindow::MarkFoundWords() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const auto& word : QueryWords(FromQt(search_->text()))) {
        QTextCursor at(page_->document());
        while (!(at = page_->document()->find(ToQt(word), at)).isNull()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(ToQColor(colours::kHelpFound));
            marks.append(mark);
        }
    }
    page_->setExtraSelections(marks);
}

void HelpWindow::FollowLink(const QUrl& link) {
    ShowPage(FromQt(link.toString()));
}

void HelpWindow::Search(const QString& query) {
    const QSignalBlocker quiet(hits_);
    hits_->clear();
    for (const auto& hit : book_.Search(FromQt(query))) {
        const std::string text = book_.Pages()[hit.page].title + "\n" + hit.extract;
        auto* item = new QListWidgetItem(ToQt(text), hits_);
        item->setData(kPageRole, static_cast<int>(hit.page));
    }
    const bool searching = !QueryWords(FromQt(query)).empty();
    if (searching && hits_->count() == 0) {
        auto* none = new QListWidgetItem(ToQt(helptexts::NoHits), hits_);
        none->setFlags(Qt::NoItemFlags);
    }
    left_->setCurrentWidget(searching ? static_cast<QWidget*>(hits_) : contents_);
    MarkFoundWords();
}

void HelpWindow::OpenHit(const QListWidgetItem* item) {
    if (item == nullptr || !item->data(kPageRole).isValid()) return;
    Go(static_cast<std::size_t>(item->data(kPageRole).toInt()));
}

void HelpWindow::OpenContents(const QTreeWidgetItem* item) {
    if (item == nullptr || !item->data(0, kPageRole).isValid()) return;
    Go(static_cast<std::size_t>(item->data(0, kPageRole).toInt()));
}

void HelpWindow::Zoom(int steps) {
    const int wanted = std::clamp(zoom_ + steps, kMinimumZoom, kMaximumZoom);
    page_->zoomIn(wanted - zoom_);
    zoom_ = wanted;
}
