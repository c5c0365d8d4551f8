#include "ShellPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ShellPage::ShellPage(const QString& objectName, const QString& title, QWidget* parent)
    : ctlPage(parent) {
    setObjectName(objectName);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(title, this);
    label->setObjectName(QStringLiteral("lblTitle"));
    layout->addWidget(label);
    layout->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}
