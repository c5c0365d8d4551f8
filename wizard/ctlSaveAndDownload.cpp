#include "ctlSaveAndDownload.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "ModDownload.h"
#include "PageSupport.h"
#include "PropertyBag.h"
#include "SDKFrame.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

ctlSaveAndDownload::ctlSaveAndDownload(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlSaveAndDownload1"));
    auto* grid = new QGridLayout(this);

    std::vector<QLabel*> autoLabels, basicLabels;
    frameAuto = SequenceFrame(this, QStringLiteral("frameAuto"),
                              AutoSequenceSteps(7, QStringLiteral("lblSaveSetup")), &autoLabels);
    frameBasic =
        SequenceFrame(this, QStringLiteral("frameBasic"),
                      BasicSequenceSteps(QStringLiteral("lblSaveAndDownload")), &basicLabels);
    grid->addWidget(frameAuto, 0, 0, 2, 1);
    grid->addWidget(frameBasic, 0, 0, 2, 1);
    BlinkTimer = new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimer"), autoLabels.back(), this);
    BlinkTimerBasic =
        new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimerBasic"), basicLabels.back(), this);

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("APPLY FLOW CONFIGURATION"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);
    auto* text = new QLabel(
        QStringLiteral("Flow Configuration is completed successfully. In order to download the "
                       "configuration to the transmitter please select \"Apply\". Then perform "
                       "download / store to device from your frame application."),
        this);
    text->setObjectName(QStringLiteral("lblText"));
    text->setWordWrap(true);
    right->addWidget(text);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdSave = AddPageButtons(grid, QStringLiteral("cmdSave"), QStringLiteral("Apply"),
                             [this] { cmdSave_Click(); });
}

qdf::clsExGlobalVars* ctlSaveAndDownload::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (store_) store_->Gbl_ReadyToSave = qdf::kTrue;
    UpdateImportedVars();
    return store_;
}

void ctlSaveAndDownload::StopBlink() {
    BlinkTimer->Stop();
    BlinkTimerBasic->Stop();
}

void ctlSaveAndDownload::UpdateImportedVars() {
    if (!store_) return;
    const bool basic = store_->Xmtr_SimpleFlowCalcMode != 0;
    ShowSequence(basic, frameAuto, BlinkTimer, frameBasic, BlinkTimerBasic);
}

void ctlSaveAndDownload::cmdSave_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    if (s.readonly() != qdf::kFalse) {
        ShowMessage(kTitleWizard,
                    "You are not allowed to save and download data! Only maintenance and "
                    "planningEngineer users are allowed to write data! All inputs will be lost on "
                    "close of this module.",
                    qdf::kStopNotice);
    } else {
        // No failure of the download or the persistence is reported: each step that fails
        // simply lets the next one run.
        try {
            qdf::host::DownloadToFrame(s);
        } catch (...) {
        }
        try {
            s.InitializePropertyBagFromVars();
        } catch (...) {
        }
        try {
            if (s.FCWBO && s.propertyBag) s.FCWBO->WriteData(s.propertyBag->Contents());
        } catch (...) {
        }
    }
    // These follow the write of the bag and so are not part of what is kept.
    s.Mgt_ConfigCompleteFlag = 1;
    if (s.Gbl_InitialDisplayCurrentValueFlag == 1) s.Mgt_DisplayCurrentValueFlag = 1;
    s.Gbl_ReadyToDownload = qdf::kTrue;
    if (s.SDKManager) s.SDKManager->CloseModule(s.moduleID);
}

void ctlSaveAndDownload::cmdBack_Click() {
    GoBack({"ctlPhysicalPropertySetup", "ctlSetupMode"});
}

void ctlSaveAndDownload::cmdCancel_Click() {
    CommonCancel(true);
}
