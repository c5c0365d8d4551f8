#include "ctlPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "SDKFrame.h"
#include "clsExGlobalVars.h"

qdf::clsExGlobalVars* ctlPage::Initialize(qdf::clsExGlobalVars* store) {
    store_ = store;
    return store_;
}

void ctlPage::Terminate() {
    StopBlink();
    store_ = nullptr;
}

void ctlPage::cmdCancel_Click() {
    CommonCancel(false);
}

QPushButton* ctlPage::AddPageButtons(QGridLayout* grid, const QString& forwardName,
                                     const QString& forwardText, std::function<void()> onForward) {
    auto make = [this](const QString& name, const QString& text) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(name);
        return button;
    };
    cmdBack = make(QStringLiteral("cmdBack"), QStringLiteral("< Back"));
    QPushButton* forward = make(forwardName, forwardText);
    cmdCancel = make(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdBack);
    row->addWidget(forward);
    row->addWidget(cmdCancel);
    grid->addLayout(row, 1, 1);
    connect(cmdBack, &QPushButton::clicked, this, [this] { cmdBack_Click(); });
    connect(forward, &QPushButton::clicked, this, std::move(onForward));
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
    return forward;
}

TVRQDFFCWMain* ctlPage::Main() const {
    return store_ ? store_->FCWMain : nullptr;
}

std::int32_t ctlPage::ShowMessage(const std::string& title, const std::string& text,
                                  std::int32_t kind, std::int32_t buttons,
                                  std::int32_t defaultButton) const {
    if (!store_ || !store_->SDKManager) return 0;
    ISDKMessageService* service = store_->SDKManager->SDKMessageService();
    if (!service) return 0;
    return service->ShowMessage(title, text, kind, buttons, defaultButton);
}

void ctlPage::CommonCancel(bool onApplyPage) {
    if (!store_) return;
    if (store_->Gbl_InitialDisplayCurrentValueFlag == 1) store_->Mgt_DisplayCurrentValueFlag = 1;
    store_->Mgt_ConfigCompleteFlag = onApplyPage ? 1 : 0;
    if (onApplyPage) store_->Gbl_ReadyToDownload = qdf::kTrue;
    store_->ClearPageList();
    store_->CurrentPage = 0;
    // Nothing goes to the business object: inputs since the last Apply are dropped on purpose.
    if (store_->SDKManager) store_->SDKManager->CloseModule(store_->moduleID);
}

std::string ctlPage::PopPageList() {
    store_->PageList[store_->CurrentPage] = std::string();
    if (store_->CurrentPage <= 0) return {};
    --store_->CurrentPage;
    return store_->PageList[store_->CurrentPage];
}

void ctlPage::PushPageList(const std::string& current, const std::string& next) {
    store_->PageList[store_->CurrentPage] = current;
    ++store_->CurrentPage;
    store_->PageList[store_->CurrentPage] = next;
}
