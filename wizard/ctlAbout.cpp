#include "ctlAbout.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "SDKMessages.h"
#include "SelfTestCertificate.h"
#include "TVRQDFFCWMain.h"
#include "WizardServices.h"

ctlAbout::ctlAbout(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlAbout1"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    lblTitle = new QLabel(QStringLiteral("QDFSondra    Flow Configuration Wizard    R") +
                              QStringLiteral(QDF_REVISION_TEXT),
                          this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    layout->addWidget(lblTitle);

    lblSelfTest = new QLabel(
        QStringLiteral("The self-test recomputes the published verification values of the "
                       "property standards with this copy of the program."),
        this);
    lblSelfTest->setObjectName(QStringLiteral("lblSelfTest"));
    lblSelfTest->setWordWrap(true);
    layout->addWidget(lblSelfTest);
    grdSelfTest = new QTableWidget(0, 4, this);
    grdSelfTest->setObjectName(QStringLiteral("grdSelfTest"));
    grdSelfTest->setHorizontalHeaderLabels({QStringLiteral("Standard"), QStringLiteral("Cases"),
                                            QStringLiteral("Passed"),
                                            QStringLiteral("Worst / tolerance")});
    grdSelfTest->verticalHeader()->hide();
    grdSelfTest->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdSelfTest->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    grdSelfTest->hide();
    layout->addWidget(grdSelfTest);
    layout->addStretch();

    auto* buttons = new QHBoxLayout;
    cmdSelfTest = new QPushButton(QStringLiteral("Self-test"), this);
    cmdSelfTest->setObjectName(QStringLiteral("cmdSelfTest"));
    cmdSaveCertificate = new QPushButton(QStringLiteral("Save certificate..."), this);
    cmdSaveCertificate->setObjectName(QStringLiteral("cmdSaveCertificate"));
    cmdSaveCertificate->setEnabled(false);
    buttons->addWidget(cmdSelfTest);
    buttons->addWidget(cmdSaveCertificate);
    buttons->addStretch();
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    buttons->addWidget(cmdOK);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (main_) main_->DisableAbout();
    });
    connect(cmdSelfTest, &QPushButton::clicked, this, [this] { cmdSelfTest_Click(); });
    connect(cmdSaveCertificate, &QPushButton::clicked, this,
            [this] { cmdSaveCertificate_Click(); });
}

void ctlAbout::Initialize(TVRQDFFCWMain* main) {
    main_ = main;
}

void ctlAbout::Terminate() {
    main_ = nullptr;
}

void ctlAbout::cmdSelfTest_Click() {
    cases_ = qdf::flowcheck::RunSelfTest();
    const auto lines = qdf::flowcheck::SummarizeSelfTest(cases_);
    grdSelfTest->setRowCount(static_cast<int>(lines.size()));
    bool all = true;
    for (int r = 0; r < static_cast<int>(lines.size()); ++r) {
        const auto& l = lines[static_cast<std::size_t>(r)];
        const bool pass = l.cases > 0 && l.passed == l.cases;
        all = all && pass;
        const QStringList cells{QString::fromStdString(l.standard), QString::number(l.cases),
                                QString::number(l.passed),
                                qdf::wizard::DeviationText(l.worstDeviation)};
        for (int c = 0; c < cells.size(); ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            if (!pass) item->setForeground(Qt::red);
            if (c > 0) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            grdSelfTest->setItem(r, c, item);
        }
    }
    grdSelfTest->resizeColumnsToContents();
    grdSelfTest->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    grdSelfTest->show();
    lblSelfTest->setText(all ? QStringLiteral("Self-test passed: every published value is "
                                              "reproduced within its tolerance.")
                             : QStringLiteral("Self-test FAILED: see the standards in red."));
    cmdSaveCertificate->setEnabled(true);
}

void ctlAbout::cmdSaveCertificate_Click() {
    using namespace qdf::wizard;
    QtDialogService desktop;
    IDialogService& dialogs = WizardServices().dialogs ? *WizardServices().dialogs : desktop;
    const FileDialogResult file = dialogs.SaveFile("PDF File (*.PDF) | *.PDF", "selftest.pdf");
    if (file.path.empty()) return;
    QString error;
    if (WriteSelfTestCertificate(QString::fromStdString(file.path), cases_, &error)) return;
    lblSelfTest->setText(QStringLiteral("The certificate was not written: ") + error);
}
