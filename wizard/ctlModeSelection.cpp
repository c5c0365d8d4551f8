#include "ctlModeSelection.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

ctlModeSelection::ctlModeSelection(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlModeSelection1"));
    auto* grid = new QGridLayout(this);

    std::vector<QLabel*> autoLabels, basicLabels;
    frameAuto = SequenceFrame(this, QStringLiteral("frameAuto"), AutoSequenceSteps(1, QString()),
                              &autoLabels);
    frameBasic = SequenceFrame(this, QStringLiteral("frameBasic"), BasicSequenceSteps(QString()),
                               &basicLabels);
    grid->addWidget(frameAuto, 0, 0, 2, 1);
    grid->addWidget(frameBasic, 0, 0, 2, 1);
    BlinkTimerAuto =
        new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimerAuto"), autoLabels.front(), this);
    BlinkTimerBasic =
        new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimerBasic"), basicLabels.front(), this);

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLOW CONFIGURATION MODE"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);
    auto* label1 = new QLabel(QStringLiteral("Welcome to flow configuration  wizard. Please select "
                                             "flow configuration mode and click next."),
                              this);
    label1->setObjectName(QStringLiteral("Label1"));
    label1->setWordWrap(true);
    right->addWidget(label1);
    auto* label3 = new QLabel(QStringLiteral("WARNING"), this);
    label3->setObjectName(QStringLiteral("Label3"));
    right->addWidget(label3);
    auto* label4 = new QLabel(
        QStringLiteral("The use of inapproriate materials can result in the leakage of corrosive "
                       "process fluids and cause injury to personnel and/or damage to plant "
                       "facilities. Check wetted parts material and transmitter fill fluid for "
                       "compatibility with the intended process fluid."),
        this);
    label4->setObjectName(QStringLiteral("Label4"));
    label4->setWordWrap(true);
    right->addWidget(label4);
    optAutoCompMode = new QRadioButton(QStringLiteral("Auto Compensation Mode"), this);
    optAutoCompMode->setObjectName(QStringLiteral("optAutoCompMode"));
    optBasicMode = new QRadioButton(QStringLiteral("Basic Mode"), this);
    optBasicMode->setObjectName(QStringLiteral("optBasicMode"));
    right->addWidget(optAutoCompMode);
    right->addWidget(optBasicMode);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    connect(optAutoCompMode, &QRadioButton::clicked, this, [this] { ShowMode(false); });
    connect(optBasicMode, &QRadioButton::clicked, this, [this] { ShowMode(true); });
}

qdf::clsExGlobalVars* ctlModeSelection::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    UpdateImportedVars();
    return store_;
}

void ctlModeSelection::StopBlink() {
    BlinkTimerAuto->Stop();
    BlinkTimerBasic->Stop();
}

void ctlModeSelection::UpdateImportedVars() {
    if (!store_) return;
    // Any mode other than Basic reads as Auto Compensation.
    ShowMode(store_->Xmtr_SimpleFlowCalcMode == 1);
}

void ctlModeSelection::ShowMode(bool basic) {
    optBasicMode->setChecked(basic);
    optAutoCompMode->setChecked(!basic);
    ShowSequence(basic, frameAuto, BlinkTimerAuto, frameBasic, BlinkTimerBasic);
}

void ctlModeSelection::cmdNext_Click() {
    if (!store_) return;
    if (optAutoCompMode->isChecked()) {
        store_->Xmtr_SimpleFlowCalcMode = 0;
        store_->UI_NeverUsedRecord = 0;
        if (Main()) Main()->SwitchToPrimaryElementSetup();
    } else {
        store_->Xmtr_SimpleFlowCalcMode = 1;
        store_->UI_NeverUsedRecord = 1;
        if (Main()) Main()->SwitchToSetupMode();
    }
}
