// The About view's self-test: the table a user sees and the certificate it saves.

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include "WizardFixture.h"
#include "WizardServices.h"
#include "ctlAbout.h"

namespace qdf::test {
namespace {

TEST_F(WizardFixture, AboutSelfTestShowsEveryStandardAndSavesTheCertificate) {
    // Catches a self-test button that shows no rows or a failing standard, and a certificate
    // that is not written through the dialog service or is no PDF.
    Open();
    main->MenuQDFSondraAbout->trigger();
    ctlAbout& about = *main->ctlAbout1;
    ASSERT_FALSE(about.isHidden());
    EXPECT_FALSE(about.cmdSaveCertificate->isEnabled()) << "nothing to certify before a run";
    about.cmdSelfTest->click();
    ASSERT_EQ(about.grdSelfTest->rowCount(), 6);
    EXPECT_EQ(about.grdSelfTest->item(0, 0)->text(), "IAPWS-IF97");
    for (int r = 0; r < 6; ++r)
        EXPECT_EQ(about.grdSelfTest->item(r, 1)->text(), about.grdSelfTest->item(r, 2)->text())
            << about.grdSelfTest->item(r, 0)->text().toStdString();
    EXPECT_TRUE(about.lblSelfTest->text().startsWith("Self-test passed"));

    QTemporaryDir dir;
    wizard::ScriptedDialogService dialogs;
    dialogs.answers.push_back({dir.filePath("cert.pdf").toStdString(), false});
    wizard::WizardServices().dialogs = &dialogs;
    about.cmdSaveCertificate->click();
    wizard::WizardServices().dialogs = nullptr;
    ASSERT_EQ(dialogs.requests.size(), 1u);
    EXPECT_EQ(dialogs.requests[0], "save PDF File (*.PDF) | *.PDF selftest.pdf");
    QFile pdf(dir.filePath("cert.pdf"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
}

}  // namespace
}  // namespace qdf::test
