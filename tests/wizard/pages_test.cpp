#include <QAbstractButton>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLocale>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include "../common/DataTable.h"
#include "../common/StoreMembers.h"
#include "PageSupport.h"
#include "PropertyBag.h"
#include "WizardFixture.h"

using namespace qdf;
using namespace qdf::test;

namespace {
const char* kWizardTitle = "QDF300 Flow Configuration Wizard";
}

// Catches a Mode page that shows the wrong mode or sequence for what the store holds.
TEST_F(WizardFixture, ModePageShowsStoredModeAndNextStoresIt) {
    Open();
    s.Xmtr_SimpleFlowCalcMode = 1;
    main->SwitchToModeSelection();
    EXPECT_TRUE(Mode().optBasicMode->isChecked());
    EXPECT_FALSE(Mode().frameBasic->isHidden());
    EXPECT_TRUE(Mode().frameAuto->isHidden());
    EXPECT_TRUE(Mode().BlinkTimerBasic->isActive());
    EXPECT_FALSE(Mode().BlinkTimerAuto->isActive());

    // A mode that is neither 0 nor 1 reads as Auto Compensation, and Next stores 0.
    s.Xmtr_SimpleFlowCalcMode = 7;
    main->SwitchToModeSelection();
    EXPECT_TRUE(Mode().optAutoCompMode->isChecked());
    EXPECT_FALSE(Mode().frameAuto->isHidden());
    Mode().cmdNext->click();
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 0);
    EXPECT_EQ(s.UI_NeverUsedRecord, 0);
    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlPrimaryElementSetup1");

    main->SwitchToModeSelection();
    Mode().optBasicMode->click();
    Mode().cmdNext->click();
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 1);
    EXPECT_EQ(s.UI_NeverUsedRecord, 1);
    EXPECT_EQ(main->CurrentPageControl(), &Basic());
}

// Catches an option click that writes the store, and a Cancel that asks or persists.
TEST_F(WizardFixture, ModeCancelClosesWithoutStoringTheOption) {
    Open();
    s.Xmtr_SimpleFlowCalcMode = 0;
    s.Gbl_InitialDisplayCurrentValueFlag = 1;
    s.Mgt_DisplayCurrentValueFlag = 0;
    s.Mgt_ConfigCompleteFlag = 1;
    main->SwitchToModeSelection();
    Mode().optBasicMode->click();
    EXPECT_FALSE(Mode().frameBasic->isHidden());
    Mode().cmdCancel->click();
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 0);
    EXPECT_EQ(host.closed, std::vector<std::string>{"M1"});
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(s.Mgt_DisplayCurrentValueFlag, 1);
    EXPECT_EQ(s.Mgt_ConfigCompleteFlag, 0);
    EXPECT_EQ(s.Gbl_ReadyToDownload, kFalse);
    EXPECT_EQ(host.dataWrites, 0);
}

// Catches a validation order or text that differs, a refusal that stores, or a wrong focus.
TEST_F(WizardFixture, BasicPageRefusesInOrder) {
    Open();
    main->show();
    App().setActiveWindow(main.get());
    main->SwitchToSetupMode();
    ctlSetupMode& b = Basic();
    const double refTempBefore = s.Xmtr_SimpleRefTemp;
    b.optLiquid->setAutoExclusive(false);
    b.optGas->setAutoExclusive(false);
    b.optLiquid->setChecked(false);
    b.optGas->setChecked(false);
    b.optLiquid->setAutoExclusive(true);
    b.optGas->setAutoExclusive(true);
    for (QLineEdit* box : {b.txtRefTemp, b.txtRefStPress, b.txtKFactor, b.txtTempK1}) box->clear();
    b.cboRefTemp->setCurrentIndex(-1);
    b.cboRefStPres->setCurrentIndex(-1);

    for (const testdata::Row& r : testdata::Load("tests/wizard/data/basic_refusals.csv")) {
        QWidget* w = r.has("control") ? b.findChild<QWidget*>(r.text("control").c_str()) : nullptr;
        ASSERT_EQ(w != nullptr, r.has("control")) << r.where();
        if (auto* button = qobject_cast<QAbstractButton*>(w)) button->click();
        if (auto* box = qobject_cast<QLineEdit*>(w)) box->setText(r.text("text").c_str());
        if (auto* list = qobject_cast<QComboBox*>(w)) list->setCurrentIndex(r.integer("text"));
        host.messages.clear();
        b.cmdNext->click();
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        EXPECT_EQ(host.messages[0].text, r.text("message")) << r.where();
        EXPECT_EQ(host.messages[0].title, kWizardTitle);
        EXPECT_EQ(host.messages[0].kind, 2);
        EXPECT_EQ(host.messages[0].buttons, 2);
        EXPECT_EQ(host.messages[0].def, 4);
        if (r.has("focus")) {
            const QWidget* focus = b.findChild<QWidget*>(r.text("focus").c_str());
            EXPECT_TRUE(focus && focus->hasFocus()) << r.where();
        }
        EXPECT_EQ(main->CurrentPageControl(), &b);
        EXPECT_EQ(s.Xmtr_SimpleRefTemp, refTempBefore);
    }
    b.txtTempK1->setText("0,001");  // grouping comma: 1 by the general numeric test
    host.messages.clear();
    b.cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(main->CurrentPageControl(), &Apply());
    EXPECT_EQ(s.Xmtr_SimpleRefTemp, 20.0);
    EXPECT_EQ(s.Xmtr_SimpleTempK1ForLqdVar, 1.0);
    EXPECT_EQ(s.Xmtr_SimpleStaticPressUnit, 12);
}

// Catches a key filter that lets a minus or letters through on the Basic page.
TEST_F(WizardFixture, BasicPageNumberBoxesDropMinusAndLetters) {
    Open();
    main->SwitchToSetupMode();
    Basic().txtKFactor->clear();
    QTest::keyClicks(Basic().txtKFactor, "-1a2,3.4E5e+x");
    EXPECT_EQ(Basic().txtKFactor->text(), "12,3.4E5e");
    QTest::keyClick(Basic().txtKFactor, Qt::Key_Backspace);
    EXPECT_EQ(Basic().txtKFactor->text(), "12,3.4E5");
    // The Auto Compensation pages keep the minus.
    EXPECT_TRUE(wizard::NumberKeyFilter::Accepts(QChar('-'), true));
}

// Catches the number test and display ignoring the user's locale: on a desktop with a decimal
// comma, "1,5" typed for the reference static pressure is one and a half, not 15, and the
// stored values show with a comma.
TEST_F(WizardFixture, BasicPageReadsAndShowsNumbersInTheUsersLocale) {
    struct Case {
        QLocale locale;
        const char* typed;
        double stored;  // -1: refused as no number
        const char* shown;
    };
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale french(QLocale::French, QLocale::France);
    const Case cases[] = {
        {QLocale::c(), "1,5", 15.0, "0.5"},    {QLocale::c(), "1.5", 1.5, "0.5"},
        {QLocale::c(), "1,5,5", 155.0, "0.5"}, {german, "1,5", 1.5, "0,5"},
        {german, "1.000,5", 1000.5, "0,5"},    {german, "1.5", 15.0, "0,5"},
        {german, "1,5,5", -1.0, "0,5"},        {german, "2,5E3", 2500.0, "0,5"},
        {french, "2,25", 2.25, "0,5"},
    };
    for (const Case& c : cases) {
        const std::string where = c.locale.name().toStdString() + " " + c.typed;
        QLocale::setDefault(c.locale);
        host.messages.clear();
        Open();
        s.Xmtr_SimpleFluidTypeCode = 2;
        s.Xmtr_SimpleRefTemp = 0.5;
        s.Xmtr_SimpleTempUnit = 32;
        s.Xmtr_SimpleRefStaticPress = 7;
        s.Xmtr_SimpleStaticPressUnit = 12;
        s.Xmtr_SimpleFlowCalcFixedVar = 1;
        main->SwitchToSetupMode();
        EXPECT_EQ(Basic().txtRefTemp->text().toStdString(), c.shown) << where;
        Basic().txtRefStPress->setText(QString::fromLatin1(c.typed));
        Basic().cmdNext->click();
        if (c.stored < 0) {
            EXPECT_EQ(host.Texts(),
                      std::vector<std::string>{"Please enter a correct number for reference static "
                                               "pressure!"})
                << where;
            EXPECT_EQ(s.Xmtr_SimpleRefStaticPress, 7.0) << where;
        } else {
            EXPECT_TRUE(host.Texts().empty()) << where;
            EXPECT_EQ(s.Xmtr_SimpleRefStaticPress, c.stored) << where;
            EXPECT_EQ(s.Xmtr_SimpleRefTemp, 0.5) << where;
        }
    }
    QLocale::setDefault(QLocale::c());
}

// Catches pasted or dropped text that bypasses the key filter: a paste arrives in one piece
// and never passes the key event filter.
TEST_F(WizardFixture, NumberBoxesFilterPastedText) {
    Open();
    main->show();
    main->SwitchToSetupMode();
    QLineEdit* box = Basic().txtKFactor;
    box->setText("12");
    box->setCursorPosition(1);
    QGuiApplication::clipboard()->setText(QStringLiteral("-7x,5"));
    box->paste();
    EXPECT_EQ(box->text(), "17,52");
    EXPECT_EQ(box->cursorPosition(), 4);
    // Ctrl+V takes the same road as the context menu's paste.
    box->clear();
    QGuiApplication::clipboard()->setText(QStringLiteral("-3e-2"));
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box->text(), "3e2");

    // A box that takes the minus keeps it in a paste; what the program shows stays as it is.
    std::unique_ptr<QLineEdit> withMinus(wizard::NumberBox(nullptr, "txtAny"));
    withMinus->setText("-999999");
    EXPECT_EQ(withMinus->text(), "-999999");
    withMinus->clear();
    QGuiApplication::clipboard()->setText(QStringLiteral("-1.5 kPa"));
    withMinus->paste();
    EXPECT_EQ(withMinus->text(), "-1.5");
}

// Catches dropped text that bypasses the filters: a drop inserts in one piece, like a paste.
TEST_F(WizardFixture, NumberBoxesFilterDroppedText) {
    Open();
    main->show();
    main->SwitchToSetupMode();
    QLineEdit* box = Basic().txtKFactor;
    box->setText("12");
    QMimeData mime;
    mime.setText(QStringLiteral("-4 x5"));
    const QPoint end(box->width() - 2, box->height() / 2);
    QDragEnterEvent enter(end, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &enter);
    QDropEvent drop(QPointF(end), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &drop);
    EXPECT_EQ(box->text(), "1245");
}

// Catches unit lists selected by list position: on a HART device the device's own
// enumeration is shown, so positions of the short table point at the wrong units.
TEST_F(WizardFixture, BasicPageUnitSelectionFollowsLocation) {
    Open("HART", 2, "Japan");
    s.Xmtr_SimpleTempUnit = 33;  // deg F is not offered in Japan
    s.Xmtr_SimpleStaticPressUnit = 12;
    s.Xmtr_SimpleRefTemp = 15;
    s.Xmtr_SimpleRefStaticPress = 0;
    s.Xmtr_SimpleFlowCalcFixedVar = 1;
    s.Xmtr_SimpleFluidTypeCode = 2;
    main->SwitchToSetupMode();
    EXPECT_EQ(Basic().cboRefTemp->currentIndex(), -1);
    EXPECT_EQ(Basic().cboRefStPres->currentText(), "kPa");
    EXPECT_EQ(Basic().txtRefStPress->text(), "0");
    Basic().cmdNext->click();
    ASSERT_EQ(host.Texts(),
              std::vector<std::string>{"Please make a selection for reference temperature unit"});
    s.Xmtr_SimpleTempUnit = 35;
    main->SwitchToSetupMode();
    EXPECT_EQ(Basic().cboRefTemp->currentText(), "Kelvin");
    Basic().cmdNext->click();
    EXPECT_EQ(s.Xmtr_SimpleStaticPressUnit, 12);
    EXPECT_EQ(s.Xmtr_SimpleTempUnit, 35);

    for (const testdata::Row& r : testdata::Load("tests/wizard/data/unit_list_positions.csv")) {
        host.messages.clear();
        main.reset();
        Open(r.text("bus"), 2, r.text("location"));
        const bool temperature = r.text("list") == "temperature";
        (temperature ? s.Xmtr_SimpleTempUnit : s.Xmtr_SimpleStaticPressUnit) =
            static_cast<std::int32_t>(r.integer("code"));
        main->SwitchToSetupMode();
        const QComboBox* list = temperature ? Basic().cboRefTemp : Basic().cboRefStPres;
        EXPECT_EQ(list->currentText().toStdString(), r.text("shown")) << r.where();
    }
}

// Catches gas keeping a Temp K1, lost FF unit codes, untrimmed configuration texts, or a
// missing Back stack entry.
TEST_F(WizardFixture, BasicPageStoresGasOnFieldbus) {
    Open("FFH1");
    s.Mgt_UserName = std::string(40, 'u');
    s.Mgt_ConfDate = "2024-05-06 07:08:09";
    s.Mgt_CfgSoftRev = "1.05.00";
    s.Xmtr_SimpleFluidTypeCode = 1;
    s.Xmtr_SimpleTempK1ForLqdVar = 0.5;
    s.Xmtr_SimpleDensityBase = 3.0;
    main->SwitchToSetupMode();
    ctlSetupMode& b = Basic();
    EXPECT_EQ(b.txtTempK1->text(), "0.5");
    b.optGas->click();
    EXPECT_TRUE(b.txtTempK1->text().isEmpty());
    EXPECT_FALSE(b.txtTempK1->isEnabled());
    b.txtRefTemp->setText("60");
    b.cboRefTemp->setCurrentIndex(1);  // deg F
    b.txtRefStPress->setText("14.7");
    b.cboRefStPres->setCurrentIndex(11);  // kPa (code 12)
    b.txtKFactor->setText("3.25");
    b.cmdNext->click();
    ASSERT_TRUE(host.messages.empty()) << host.messages[0].text;
    testdata::ExpectMembers(s, "tests/wizard/data/basic_gas_ffh1.json");
}

// Catches Back storing the edited boxes, or a value shown in the wrong form.
TEST_F(WizardFixture, BasicPageBackKeepsStoredValues) {
    Open();
    s.Xmtr_SimpleRefTemp = 0;
    s.Xmtr_SimpleFlowCalcFixedVar = kNotEntered;
    main->SwitchToSetupMode();
    EXPECT_EQ(Basic().txtRefTemp->text(), "0");
    EXPECT_TRUE(Basic().txtKFactor->text().isEmpty());
    Basic().txtRefTemp->setText("99");
    Basic().cmdBack->click();
    EXPECT_EQ(s.Xmtr_SimpleRefTemp, 0.0);
    EXPECT_EQ(main->CurrentPageControl(), &Mode());
    main->SwitchToSetupMode();
    EXPECT_EQ(Basic().txtRefTemp->text(), "0");
}

namespace {
void FillBasic(ctlSetupMode& b) {
    b.optLiquid->click();
    b.txtRefTemp->setText("15");
    b.cboRefTemp->setCurrentIndex(0);
    b.txtRefStPress->setText("101.325");
    b.cboRefStPres->setCurrentIndex(11);
    b.txtKFactor->setText("2");
    b.txtTempK1->setText("0.25");
    b.cmdNext->click();
}
}  // namespace

// Catches a read-only user writing the device or the business object on Apply.
TEST_F(WizardFixture, ApplyAsReadOnlyWritesNothingAndCloses) {
    Open("HART", 1);
    s.FCWBO = &host;
    s.Xmtr_SimpleFlowCalcMode = 1;
    main->SwitchToSetupMode();
    FillBasic(Basic());
    ASSERT_EQ(main->CurrentPageControl(), &Apply());
    Apply().cmdSave->click();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "You are not allowed to save and download data! Only maintenance and "
              "planningEngineer users are allowed to write data! All inputs will be lost on close "
              "of this module.");
    EXPECT_EQ(host.messages[0].title, kWizardTitle);
    EXPECT_EQ(host.messages[0].kind, 1);
    EXPECT_TRUE(host.writes.empty());
    EXPECT_EQ(host.dataWrites, 0);
    EXPECT_EQ(host.closed.size(), 1u);
    EXPECT_EQ(s.Mgt_ConfigCompleteFlag, 1);
    EXPECT_EQ(s.Gbl_ReadyToDownload, kTrue);
}

// Catches a maintenance Apply that skips the download, persists the wrong state, or stays open.
TEST_F(WizardFixture, ApplyAsMaintenanceDownloadsPersistsAndCloses) {
    Open("HART", 2);
    s.FCWBO = &host;
    s.Xmtr_SimpleFlowCalcMode = 1;
    s.Mgt_ConfigCompleteFlag = 0;
    s.UI_PEMaterial = "Monel";
    main->SwitchToSetupMode();
    FillBasic(Basic());
    Apply().cmdSave->click();
    EXPECT_TRUE(host.messages.empty());
    std::vector<std::string> names;
    for (const auto& w : host.writes) names.push_back(w.first);
    EXPECT_EQ(names, (std::vector<std::string>{
                         "static_pressure_units", "et_units", "simple_dens_base", "flow_calc_mode",
                         "fluid_type", "flow_calc_fixed", "ref_sp", "ref_temp", "temp_k1"}));
    EXPECT_EQ(host.writes[5].second, Value(2.0));
    ASSERT_EQ(host.dataWrites, 1);
    auto bag = PropertyBag::FromBytes(host.stored);
    ASSERT_TRUE(bag);
    EXPECT_EQ(bag->ReadProperty("m_UI_PEMaterial").str(), "Monel");
    EXPECT_EQ(bag->ReadProperty("m_Gbl_ReadyToDownload"), Value(false));
    // Set after the bag was written, so not part of it.
    EXPECT_EQ(bag->ReadProperty("m_Mgt_ConfigCompleteFlag").toDouble(), 0.0);
    EXPECT_EQ(s.Mgt_ConfigCompleteFlag, 1);
    EXPECT_EQ(host.closed.size(), 1u);
}

// Catches Apply failing without a business object instead of still downloading.
TEST_F(WizardFixture, ApplyWithoutBusinessObjectStillDownloads) {
    Open("FFH1", 3);
    s.FCWBO = nullptr;
    s.Xmtr_SimpleFlowCalcMode = 1;
    main->SwitchToSetupMode();
    FillBasic(Basic());
    Apply().cmdSave->click();
    EXPECT_EQ(host.writes.size(), 8u);
    EXPECT_EQ(host.dataWrites, 0);
    EXPECT_EQ(host.closed.size(), 1u);
}

// Catches Back from Apply ignoring the stack, and an Apply Cancel that does not mark readiness.
TEST_F(WizardFixture, ApplyBackAndCancel) {
    Open();
    s.Xmtr_SimpleFlowCalcMode = 1;
    main->SwitchToSetupMode();
    FillBasic(Basic());
    EXPECT_FALSE(Apply().frameBasic->isHidden());
    EXPECT_TRUE(Apply().BlinkTimerBasic->isActive());
    Apply().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl(), &Basic());
    EXPECT_EQ(s.CurrentPage, 0);
    EXPECT_EQ(s.PageList[1], "");

    // An unknown name on the stack keeps the page.
    s.PageList[0] = "ctlSomethingElse";
    s.CurrentPage = 1;
    main->SwitchToSaveAndDownload();
    Apply().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl(), &Apply());

    s.CurrentPage = 1;
    Apply().cmdCancel->click();
    EXPECT_EQ(s.Gbl_ReadyToDownload, kTrue);
    EXPECT_EQ(s.Mgt_ConfigCompleteFlag, 1);
    EXPECT_EQ(s.CurrentPage, 0);
    EXPECT_EQ(s.PageList[0], "");
    EXPECT_EQ(host.closed.size(), 1u);
    EXPECT_EQ(host.dataWrites, 0);
}
