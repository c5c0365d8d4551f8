#include "ctlAbout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "TVRQDFFCWMain.h"

ctlAbout::ctlAbout(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlAbout1"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    lblTitle = new QLabel(QStringLiteral("QDFSondra    Flow Configuration Wizard    R") +
                              QStringLiteral(QDF_REVISION_TEXT),
                          this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    layout->addWidget(lblTitle);
    layout->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    buttons->addWidget(cmdOK);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (main_) main_->DisableAbout();
    });
}

void ctlAbout::Initialize(TVRQDFFCWMain* main) {
    main_ = main;
}

void ctlAbout::Terminate() {
    main_ = nullptr;
}
