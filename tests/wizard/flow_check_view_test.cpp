// The Flow Check view from the Report menu of the Apply page: the map, the worst figures, the
// sources, the applicability list and the PDF, on the ethane orifice example.

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <cstdlib>

#include "Fits.h"
#include "ModBinary.h"
#include "MvConfig.h"
#include "WizardFixture.h"
#include "WizardServices.h"
#include "ctlFlowCheck.h"

namespace qdf::test {
namespace {

class FlowCheckView : public WizardFixture {
  protected:
    void OpenEthaneOnApply() {
        Open();
        ASSERT_EQ(OpenBinaryFile(s, std::string(QDF_SOURCE_DIR) + "/examples/ethane_orifice.qmv"),
                  0);
        ASSERT_EQ(RunCalculation(s), 0);
        ASSERT_EQ(RunFits(s), 0);
        main->SwitchToSaveAndDownload();
    }
};

TEST_F(FlowCheckView, ReportMenuOpensTheCheckOfTheParametersAboutToBeWritten) {
    // Catches the entry missing beside "Report", a view that shows no map or numbers, and a
    // PDF not written through the dialog service.
    OpenEthaneOnApply();
    const auto entries = main->MenuTopReport->actions();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0]->text(), "Report");
    EXPECT_EQ(entries[1]->text(), "Flow Check");
    EXPECT_TRUE(main->ToolbarButton(4)->isEnabled()) << "the Report menu belongs to Apply";

    main->MenuFlowCheck->trigger();
    ctlFlowCheck& view = *main->ctlFlowCheck1;
    ASSERT_FALSE(view.isHidden());
    ASSERT_TRUE(view.Result().has_value());
    EXPECT_EQ(view.lblVerdict->text(), "Worst error +0.0482 %: within the threshold of 0.1 %");
    EXPECT_EQ(view.lblWorst->text(),
              "At DP 0.25 kPa, SP 2000 kPa abs, ET 313.33 K.\nMain source: density fit.");
    ASSERT_EQ(view.cboET->count(), 10);
    EXPECT_EQ(view.cboET->currentText(), "313.33 K") << "the map opens at the worst ET";
    ASSERT_EQ(view.grdSources->rowCount(), 5);
    EXPECT_EQ(view.grdSources->item(0, 0)->text(), "density fit");
    EXPECT_EQ(view.grdSources->item(0, 1)->text(), "0.0487 %");
    EXPECT_EQ(view.grdApplicability->item(5, 1)->text(), "Diameter ratio beta");
    EXPECT_EQ(view.grdApplicability->item(5, 0)->text(), "pass");

    // A threshold below the worst error turns the verdict.
    view.txtThreshold->setText("0.01");
    view.cmdCheck->click();
    EXPECT_EQ(view.lblVerdict->text(), "Worst error +0.0482 %: above the threshold of 0.01 %");
    view.txtDpMax->setText("x");
    view.cmdCheck->click();
    EXPECT_EQ(view.lblVerdict->text(), "No check: the DP upper range value must be above 0");
    EXPECT_FALSE(view.cmdSavePdf->isEnabled());
    view.txtDpMax->setText("25");
    view.cmdCheck->click();

    QTemporaryDir dir;
    wizard::ScriptedDialogService dialogs;
    dialogs.answers.push_back({dir.filePath("check.pdf").toStdString(), false});
    wizard::WizardServices().dialogs = &dialogs;
    view.cmdSavePdf->click();
    wizard::WizardServices().dialogs = nullptr;
    ASSERT_EQ(dialogs.requests.size(), 1u);
    EXPECT_EQ(dialogs.requests[0], "save PDF File (*.PDF) | *.PDF FlowCheck.pdf");
    QFile pdf(dir.filePath("check.pdf"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_EQ(pdf.read(5), "%PDF-");

    if (const char* shot = std::getenv("QDF_FLOWCHECK_SHOT")) main->grab().save(shot);
    view.cmdClose->click();
    EXPECT_TRUE(view.isHidden());
    EXPECT_FALSE(Apply().isHidden());
}

}  // namespace
}  // namespace qdf::test
