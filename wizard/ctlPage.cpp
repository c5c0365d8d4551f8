#include "ctlPage.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "PageSupport.h"
#include "SDKFrame.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

qdf::clsExGlobalVars* ctlPage::Initialize(qdf::clsExGlobalVars* store) {
    store_ = store;
    return store_;
}

void ctlPage::Terminate() {
    StopBlink();
    store_ = nullptr;
}

void ctlPage::StopBlink() {
    if (BlinkTimer) BlinkTimer->Stop();
}

void ctlPage::StartBlink() {
    if (BlinkTimer) BlinkTimer->start();
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

QGroupBox* ctlPage::AddAutoSequence(QGridLayout* grid, int step, const QString& labelName) {
    std::vector<QLabel*> labels;
    QGroupBox* frame =
        qdf::wizard::SequenceFrame(this, QStringLiteral("frameAuto"),
                                   qdf::wizard::AutoSequenceSteps(step, labelName), &labels);
    grid->addWidget(frame, 0, 0, 2, 1);
    BlinkTimer = new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimer"),
                                             labels.at(static_cast<std::size_t>(step - 1)), this);
    return frame;
}

TVRQDFFCWMain* ctlPage::Main() const {
    return store_ ? store_->FCWMain : nullptr;
}

std::int32_t ctlPage::ShowMessage(const std::string& title, const std::string& text,
                                  qdf::MessageStyle style) const {
    if (!store_ || !store_->SDKManager) return 0;
    return qdf::ShowStyledMessage(store_->SDKManager->SDKMessageService(), title, text, style);
}

void ctlPage::Notify(const std::string& title, const std::string& text) const {
    ShowMessage(title, text, qdf::kPageNotice);
}

void ctlPage::Refuse(const std::string& text, QWidget* focus) const {
    Notify(qdf::kTitleWizard, text);
    if (focus) focus->setFocus();
}

void ctlPage::RefuseSelecting(const std::string& text, QLineEdit* box) const {
    Notify(qdf::kTitleWizard, text);
    SelectAndFocus(box);
}

std::optional<double> ctlPage::RequireNumber(QLineEdit* box, const std::string& emptyText,
                                             const std::string& badText, bool selectOnBad) const {
    if (box->text().isEmpty()) {
        Refuse(emptyText, box);
        return std::nullopt;
    }
    if (!qdf::wizard::BoxIsNumber(box)) {
        if (selectOnBad)
            RefuseSelecting(badText, box);
        else
            Refuse(badText, box);
        return std::nullopt;
    }
    return qdf::wizard::BoxNumber(box);
}

bool ctlPage::AskToKeep(const std::string& text, QLineEdit* box, qdf::MessageStyle style) const {
    if (ShowMessage(qdf::kTitleWizard, text, style) == qdf::sdk::kMessageAnswerYes) return true;
    SelectAndFocus(box);
    return false;
}

void ctlPage::SelectAndFocus(QLineEdit* box) {
    box->selectAll();
    box->setFocus();
}

void ctlPage::CommonCancel(bool onApplyPage) {
    if (!store_) return;
    if (store_->Gbl_InitialDisplayCurrentValueFlag == 1) store_->Mgt_DisplayCurrentValueFlag = 1;
    store_->Mgt_ConfigCompleteFlag = onApplyPage ? 1 : 0;
    if (onApplyPage) store_->Gbl_ReadyToDownload = qdf::kTrue;
    store_->ClearPageList();
    // Nothing goes to the business object: inputs since the last Apply are dropped on purpose.
    if (store_->SDKManager) store_->SDKManager->CloseModule(store_->moduleID);
}

void ctlPage::GoBack(std::initializer_list<const char*> from) {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    std::string previous;
    // A stack index outside its bounds (a damaged persisted store) leaves the page where it is.
    try {
        s.PageList[s.CurrentPage] = std::string();
        if (s.CurrentPage <= 0) return;
        --s.CurrentPage;
        previous = s.PageList[s.CurrentPage];
    } catch (const std::exception&) {
        return;
    }
    for (const char* name : from)
        if (previous == name) {
            if (Main()) Main()->SwitchToPageNamed(previous);
            return;
        }
}

void ctlPage::GoForward(const std::string& current, const std::string& next) {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    try {
        s.PageList[s.CurrentPage] = current;
        ++s.CurrentPage;
        s.PageList[s.CurrentPage] = next;
    } catch (const std::exception&) {
        return;
    }
    if (Main()) Main()->SwitchToPageNamed(next);
}
