#include "gui/dialogs/particular_dialog_view.h"

#include <array>
#include <string>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {
namespace {

using Section = rates::FrmFLParticular::Section;

QLineEdit* MakeEdit(QWidget* parent, const std::string& name) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(ToQ(name));
    return edit;
}

}  // namespace

ParticularCoefficientsView::ParticularCoefficientsView(rates::FrmFLParticular& dialog, Ui& ui,
                                                       QWidget* parent)
    : DialogView(dialog, ui, parent) {
    setWindowTitle(QStringLiteral("费率参数"));
    auto* layout = new QVBoxLayout(this);
    const std::array<std::pair<QGroupBox*, Section>, 3> sections = {{
        {MakeSubsidySection(), Section::Subsidy},
        {MakeTransferSection(), Section::Transfer},
        {MakeRegionSection(), Section::Region},
    }};
    for (const auto& [frame, section] : sections) {
        layout->addWidget(frame);
        frame->setVisible(dialog.ShownSection() == section);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    layout->addLayout(buttons);
    QPushButton* sure = AddButton(this, buttons, "cmdSure", kSureCaption);
    BindAccept(sure);
    // Enter belongs to the text boxes (it moves between them), not to a button.
    sure->setDefault(false);
    sure->setAutoDefault(false);
    ShowFields();
}

QGroupBox* ParticularCoefficientsView::MakeSubsidySection() {
    auto* frame = new QGroupBox(QStringLiteral("主副食运费补贴"), this);
    frame->setObjectName("Frame");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel(QStringLiteral("系数"), frame), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("运距(km)"), frame), 0, 2);
    const std::array<QString, 4> items = {QStringLiteral("粮食"), QStringLiteral("燃料"),
                                          QStringLiteral("蔬菜"), QStringLiteral("水")};
    std::array<QLineEdit*, 4> weights{};
    for (int i = 0; i < 4; ++i) {
        const std::string index = std::to_string(i);
        weights[i] = MakeEdit(frame, "txtCoe" + index);
        QLineEdit* distance = MakeEdit(frame, "txtName" + index);
        grid->addWidget(new QLabel(items[i], frame), i + 1, 0);
        grid->addWidget(weights[i], i + 1, 1);
        grid->addWidget(distance, i + 1, 2);
        BindText("txtCoe" + index, weights[i]);
        BindText("txtName" + index, distance);
    }
    QLineEdit* result = MakeEdit(frame, "txtResult");
    grid->addWidget(new QLabel(QStringLiteral("综合里程(km)"), frame), 5, 0, 1, 2);
    grid->addWidget(result, 5, 2);
    BindText("txtResult", result);
    for (int i = 0; i < 4; ++i) {
        QWidget* next = i + 1 < 4 ? static_cast<QWidget*>(weights[i + 1]) : result;
        connect(weights[i], &QLineEdit::returnPressed, next,
                [next] { next->setFocus(Qt::TabFocusReason); });
    }
    return frame;
}

QGroupBox* ParticularCoefficientsView::MakeTransferSection() {
    auto* frame = new QGroupBox(QStringLiteral("工地转移"), this);
    frame->setObjectName("Frame_GDZY");
    QLineEdit* distance = MakeEdit(frame, "txtDistance");
    auto* kind = new QComboBox(frame);
    kind->setObjectName("Combo_GDZY");
    auto* form = new QFormLayout(frame);
    form->addRow(QStringLiteral("转移距离(km)"), distance);
    form->addRow(QStringLiteral("转移方式"), kind);
    BindText("txtDistance", distance);
    BindChoice("Combo_GDZY", kind);
    return frame;
}

QGroupBox* ParticularCoefficientsView::MakeRegionSection() {
    auto* frame = new QGroupBox(QStringLiteral("地区类别"), this);
    frame->setObjectName("Frame_GLF");
    auto* region = new QComboBox(frame);
    region->setObjectName("Combo_GLF");
    auto* deduct = new QCheckBox(QStringLiteral("扣减"), frame);
    deduct->setObjectName("chkGLF");
    auto* row = new QHBoxLayout(frame);
    row->addWidget(region);
    row->addWidget(deduct);
    BindChoice("Combo_GLF", region);
    BindCheck("chkGLF", deduct);
    return frame;
}

}  // namespace kwfy::gui
