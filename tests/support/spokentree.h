#pragma once
// The tree that a screen reader walks, as it is at this moment, and what is poor in it.

#include "platform/qttext.h"

#include <QAccessible>
#include <QLabel>
#include <QObject>
#include <QWidget>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct SpokenNode {
    QAccessible::Role role = QAccessible::NoRole;
    std::string name, description;
    bool focusable = false;
    std::string object;                   ///< the control's own name, for messages
    std::vector<std::string> parts = {};  ///< the names of the nodes around it
};

/// What can be seen of it, in the order that it is walked in.
class SpokenTree {
  public:
    explicit SpokenTree(QObject& top) { Walk(QAccessible::queryAccessibleInterface(&top), {}); }

    const std::vector<SpokenNode>& Nodes() const { return nodes_; }
    std::vector<std::string> Names(QAccessible::Role role) const {
        std::vector<std::string> names;
        for (const SpokenNode& node : nodes_) {
            if (node.role == role) names.push_back(node.name);
        }
        return names;
    }

    /// Controls and texts without a name, and texts that are in the tree without saying what can be
    /// read in them.
    std::vector<std::string> Nameless() const {
        std::vector<std::string> findings = mute_;
        for (const SpokenNode& node : nodes_) {
            const bool told = node.focusable || kSpeaking.contains(node.role);
            if (told && node.name.empty()) findings.push_back(Told(node) + " has no name");
        }
        return findings;
    }

    /// What two controls of one kind in the same place are both called.
    std::vector<std::string> CalledAlike() const {
        std::map<std::pair<QAccessible::Role, std::vector<std::string>>, int> met;
        for (const SpokenNode& node : nodes_) {
            if (!kSpeaking.contains(node.role)) continue;
            std::vector<std::string> path = node.parts;
            path.push_back(node.name);
            ++met[{node.role, path}];
        }
        std::vector<std::string> findings;
        for (const auto& [key, count] : met) {
            if (count > 1) findings.push_back(std::to_string(count) + " x " + key.second.back());
        }
        return findings;
    }

  private:
    // Cells are told apart by their rows, not by their names.
    inline static const std::set<QAccessible::Role> kSpeaking = {
        QAccessible::StaticText,     QAccessible::Button,       QAccessible::ButtonMenu,
        QAccessible::ButtonDropDown, QAccessible::EditableText, QAccessible::ComboBox,
        QAccessible::List,           QAccessible::ListItem,     QAccessible::Table,
        QAccessible::Tree,           QAccessible::TreeItem,     QAccessible::CheckBox,
        QAccessible::RadioButton,    QAccessible::SpinBox,      QAccessible::Slider,
        QAccessible::PageTab,        QAccessible::MenuItem,     QAccessible::ColumnHeader,
        QAccessible::RowHeader,      QAccessible::Chart,        QAccessible::Graphic,
        QAccessible::Link,           QAccessible::StatusBar};

    static std::string Told(const SpokenNode& node) {
        return "role " + std::to_string(node.role) + " " + node.object;
    }
    void Walk(QAccessibleInterface* one, std::vector<std::string> parts) {
        if (one == nullptr || !one->isValid() || one->state().invisible) return;
        SpokenNode node;
        node.role = one->role();
        node.name = FromQt(one->text(QAccessible::Name));
        node.description = FromQt(one->text(QAccessible::Description));
        node.focusable = one->state().focusable;
        if (one->object() != nullptr) {
            node.object = one->object()->metaObject()->className() + std::string(" ") +
                          FromQt(one->object()->objectName());
        }
        node.parts = parts;
        // A cell that is empty is told by its column.
        if (node.role == QAccessible::Cell && node.name.empty()) {
            mute_.push_back("an empty cell in " + (parts.empty() ? "" : parts.back()));
        }
        if (const auto* label = qobject_cast<QLabel*>(one->object())) Read(*label, node);
        parts.push_back(node.name.empty() ? node.object : node.name);
        nodes_.push_back(std::move(node));
        for (int at = 0; at < one->childCount(); ++at) Walk(one->child(at), parts);
    }
    /// What stands in a label belongs to its name.
    void Read(const QLabel& label, const SpokenNode& node) {
        const std::string text = FromQt(label.text().remove(u'&'));
        if (label.textFormat() == Qt::RichText || node.name.find(text) != std::string::npos) return;
        const bool cut = text.find("\xE2\x80\xA6") != std::string::npos;
        if (!cut) mute_.push_back(Told(node) + " does not say \"" + text + "\"");
    }

    std::vector<SpokenNode> nodes_;
    std::vector<std::string> mute_;
};
