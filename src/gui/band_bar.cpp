#include "gui/band_bar.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>

#include "gui/twips.h"

namespace kwfy::gui {

namespace {

constexpr int kEnterKey = 13;
constexpr int kTextBoxPixels = 80;  // a text tool left at its natural width

void ApplyWidth(QWidget* w, const Tool& tool) {
    if (tool.width > 0) w->setFixedWidth(ToPixels(tool.width));
}

QStringList Items(const Tool& tool) {
    QStringList items;
    for (const auto& item : tool.items) items << Q(item);
    return items;
}

}  // namespace

BandBar::BandBar(ToolbarModel& toolbar, std::string band, ActionRunner runner, QWidget* parent)
    : QToolBar(parent), toolbar_(toolbar), band_(std::move(band)), runner_(std::move(runner)) {
    setObjectName(Q(band_));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Sync();
}

std::vector<std::pair<std::string, ToolKind>> BandBar::Structure(const Band& band) {
    std::vector<std::pair<std::string, ToolKind>> out;
    for (const Tool& t : band.Tools())
        if (t.visible) out.emplace_back(t.key, t.kind);
    return out;
}

void BandBar::Sync() {
    const Band& band = toolbar_.GetBand(band_);
    auto structure = Structure(band);
    if (structure != structure_) {
        structure_ = std::move(structure);
        return Rebuild(band);
    }
    size_t i = 0;
    for (const Tool& t : band.Tools())
        if (t.visible && i < shown_.size()) Update(t, shown_[i++]);
}

void BandBar::Rebuild(const Band& band) {
    for (QAction* a : actions()) {
        removeAction(a);
        a->deleteLater();
    }
    shown_.clear();
    for (const Tool& t : band.Tools()) {
        if (!t.visible) continue;
        shown_.push_back(AddTool(t));
        Update(t, shown_.back());
    }
}

void BandBar::AddCaption(const Tool& tool) {
    if (tool.caption.empty()) return;
    auto* label = new QLabel(Q(tool.caption));
    label->setObjectName(Q("caption:" + tool.key));
    addWidget(label);
}

BandBar::Shown BandBar::AddTool(const Tool& tool) {
    Shown s{tool.key, tool.kind};
    const std::string key = tool.key;
    switch (tool.kind) {
        case ToolKind::Separator:
            addSeparator();
            break;
        case ToolKind::Button: {
            s.action = addAction(Q(tool.caption));
            s.action->setObjectName(Q(key));
            if (!tool.picture.empty() && QFile::exists(Q(tool.picture)))
                s.action->setIcon(QIcon(Q(tool.picture)));
            else if (tool.caption.empty())
                s.action->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
            connect(s.action, &QAction::triggered, this,
                    [this, key] { runner_([&] { toolbar_.UserClick(key); }); });
            break;
        }
        case ToolKind::Label: {
            auto* label = new QLabel;
            s.widget = label;
            addWidget(label);
            break;
        }
        case ToolKind::Combo: {
            AddCaption(tool);
            auto* box = new QComboBox;
            ApplyWidth(box, tool);
            box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
            connect(box, &QComboBox::activated, this, [this, key, box](int i) {
                const std::string text = S(box->itemText(i));
                runner_([&] { toolbar_.UserChoose(key, text); });
            });
            s.widget = box;
            addWidget(box);
            break;
        }
        case ToolKind::TextBox: {
            AddCaption(tool);
            auto* edit = new QLineEdit;
            if (tool.width > 0)
                ApplyWidth(edit, tool);
            else
                edit->setFixedWidth(kTextBoxPixels);
            connect(edit, &QLineEdit::textEdited, this, [this, key](const QString& text) {
                runner_([&] { toolbar_.UserSetText(key, S(text)); });
            });
            connect(edit, &QLineEdit::returnPressed, this,
                    [this, key] { runner_([&] { toolbar_.UserKeyDown(key, kEnterKey); }); });
            s.widget = edit;
            addWidget(edit);
            break;
        }
    }
    if (s.widget) s.widget->setObjectName(Q(key));
    return s;
}

void BandBar::Update(const Tool& tool, Shown& s) {
    if (s.action) {
        s.action->setText(Q(tool.caption));
        s.action->setToolTip(Q(tool.tip.empty() ? tool.caption : tool.tip));
        s.action->setEnabled(tool.enabled);
    }
    if (!s.widget) return;
    s.widget->setEnabled(tool.enabled);
    s.widget->setToolTip(Q(tool.tip));
    if (auto* label = qobject_cast<QLabel*>(s.widget)) {
        label->setText(Q(tool.caption));
    } else if (auto* box = qobject_cast<QComboBox*>(s.widget)) {
        const QSignalBlocker block(box);
        const QStringList items = Items(tool);
        QStringList shownItems;
        for (int i = 0; i < box->count(); ++i) shownItems << box->itemText(i);
        if (shownItems != items) {
            box->clear();
            box->addItems(items);
        }
        box->setCurrentIndex(tool.listIndex < box->count() ? tool.listIndex : -1);
        box->setPlaceholderText(Q(tool.text));
    } else if (auto* edit = qobject_cast<QLineEdit*>(s.widget)) {
        if (edit->text() != Q(tool.text)) edit->setText(Q(tool.text));
    }
}

QWidget* BandBar::ToolWidget(const std::string& key) const {
    for (const Shown& s : shown_)
        if (s.key == key) return s.widget;
    return nullptr;
}

QAction* BandBar::ToolAction(const std::string& key) const {
    for (const Shown& s : shown_)
        if (s.key == key) return s.action;
    return nullptr;
}

}  // namespace kwfy::gui
