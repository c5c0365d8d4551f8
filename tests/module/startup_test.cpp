#include <QAction>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QScrollBar>

#include "../common/StoreMembers.h"
#include "HostedModule.h"
#include "Registry.h"

using namespace qdf;
using namespace qdf::test;

namespace {
const char* kReadOnly =
    "You are not allowed to save and download data! Only maintenance and planningEngineer users "
    "are allowed to write data! All inputs will be lost on close of this module.";
}

// Catches a load that completes early (before the last entry), twice, or leaves observers.
TEST_F(HostedModule, SynchronousValuesCompleteOnceInsideTheLastEntry) {
    AddDevice("qdf300_hart.json");
    host.user.name = "PACTware";
    Open();
    EXPECT_EQ(module->CompletionCount(), 1);
    EXPECT_FALSE(module->AllRequested());
    EXPECT_TRUE(module->LoadScreen()->isHidden());
    EXPECT_FALSE(Main().isHidden());
    EXPECT_EQ(Main().CurrentPageControl(), static_cast<ctlPage*>(Main().ctlModeSelection1));
    EXPECT_EQ(Store().varsInitialized, kTrue);
    // The last entry's value made it into the store, so completion ran after its delivery.
    testdata::ExpectMembers(Store(), "tests/module/data/startup_hart.json");
    EXPECT_EQ(Store().readonly(), kFalse);
    EXPECT_TRUE(Main().ctlModeSelection1->optBasicMode->isChecked());
    // Only the two temperature unit observers stay.
    EXPECT_EQ(host.Manager()->AdvisedCount(), 2);
    // No configuration strings on HART: those entries never block the load.
    for (int i = 16; i <= 22; ++i) EXPECT_EQ(module->Entry(i).variable, nullptr) << i;
    EXPECT_EQ(module->Entry(14).variable, nullptr);  // flow units: never observed
    EXPECT_TRUE(Texts().empty());
    EXPECT_EQ(Store().temp_units.size(), 3u);
    EXPECT_EQ(Store().press_units.size(), 19u);
}

// Catches a load that needs the values during registration, or completes before the last one.
TEST_F(HostedModule, LaterDeliveriesCompleteTheLoadOnce) {
    AddDevice("qdf300_hart.json");
    host.options.firstValueAtOnce = false;
    Open();
    EXPECT_EQ(module->CompletionCount(), 0);
    EXPECT_TRUE(module->AllRequested());
    EXPECT_FALSE(module->LoadScreen()->isHidden());
    host.Manager()->DeliverPending();
    EXPECT_EQ(module->CompletionCount(), 1);
    EXPECT_TRUE(module->LoadScreen()->isHidden());
    EXPECT_EQ(Store().Xmtr_SimpleFlowCalcFixedVar, 1.0);
    EXPECT_EQ(host.Manager()->AdvisedCount(), 2);
}

// Catches a load that gives up waiting for a value that never comes.
TEST_F(HostedModule, ValueNeverDeliveredStaysLoading) {
    AddDevice("qdf300_hart.json");
    host.options.neverDeliver = {"ref_temp"};
    Open();
    EXPECT_EQ(module->CompletionCount(), 0);
    EXPECT_FALSE(module->LoadScreen()->isHidden());
    EXPECT_TRUE(Main().isHidden());
    EXPECT_EQ(Store().varsInitialized, kFalse);
    EXPECT_EQ(module->LoadScreen()->Label1->text(), "Module is loading Parameters... ");
    EXPECT_EQ(module->ISDKModule_QueryDisconnect(), 4);
    EXPECT_EQ(module->Store(), nullptr);
}

// Catches a module that runs without the installation key or says so in a message box.
TEST_F(HostedModule, MissingInstallationKeyShowsErrorScreenOnly) {
    AddDevice("qdf300_hart.json");
    WriteRegistry("[SOFTWARE\\TAVRIN\\DTMs\\Other]\nPath=x\n");
    Open();
    EXPECT_FALSE(module->ErrorScreen()->isHidden());
    EXPECT_EQ(module->ErrorScreen()->Label1->text(),
              "In order to use this function, you must install KLM450(Trelwin Corvane) CD-ROM.");
    EXPECT_TRUE(module->LoadScreen()->isHidden());
    EXPECT_EQ(module->Store(), nullptr);
    EXPECT_EQ(host.Manager()->AdvisedCount(), 0);
    EXPECT_TRUE(Texts().empty());
    EXPECT_EQ(module->ISDKModule_QueryDisconnect(), 4);
}

// Catches a missing business object that stops the wizard or goes unannounced.
TEST_F(HostedModule, MissingBusinessObjectWarnsAndRuns) {
    AddDevice("qdf300_hart.json");
    host.options.provideBusinessObject = false;
    Open();
    ASSERT_EQ(Texts(), std::vector<std::string>{
                           "Reading business object failed. No user interface persistency "
                           "possible!"});
    EXPECT_EQ(messages.shown[0].title, "QDF300 Warning");
    EXPECT_EQ(messages.shown[0].kind, 1);
    EXPECT_EQ(messages.shown[0].buttons, 2);
    EXPECT_EQ(messages.shown[0].defaultButton, 4);
    EXPECT_EQ(Store().FCWBO, nullptr);
    EXPECT_EQ(Store().varsInitialized, kTrue);
}

// Catches the read-only warning tied to the role table instead of the level below 2.
TEST_F(HostedModule, LowLevelsWarnHighLevelsAreSilentlyReadOnly) {
    AddDevice("qdf300_hart.json");
    host.user.level = 1;
    Open();
    EXPECT_EQ(Texts(), std::vector<std::string>{kReadOnly});
    EXPECT_EQ(Store().readonly(), kTrue);
    EXPECT_EQ(Store().Mgt_UserRole, "Operator");
    host.CloseModuleNow();

    messages.shown.clear();
    host.user.level = 4;
    Open();
    EXPECT_TRUE(Texts().empty());
    EXPECT_EQ(Store().readonly(), kTrue);
}

// Catches Fieldbus unit codes not mapped to the store's codes, or a pressure left unscaled.
TEST_F(HostedModule, FieldbusUnitsMapToHartCodesWithRescaling) {
    AddDevice("qdf300_ffh1.json");
    frame::FrameDevice& d = host.Device(0);
    ASSERT_TRUE(d.SetValue("FLOW_TRANSDUCER_BLOCK.0.STATIC_PRESSURE_UNIT", Value(1131)));
    ASSERT_TRUE(d.SetValue("FLOW_TRANSDUCER_BLOCK.0.REF_STATIC_PRESSURE", Value(0.25)));
    Open();
    ASSERT_EQ(module->CompletionCount(), 1);
    testdata::ExpectMembers(Store(), "tests/module/data/startup_ffh1.json");
    EXPECT_DOUBLE_EQ(Store().Xmtr_SimpleRefStaticPress, 250.0);
    EXPECT_FALSE(Main().MenuImportPMF->isVisible());
}

// Catches a later unit change that reaches the pages, or an update without observer taken in.
TEST_F(HostedModule, TemperatureUnitChangeReachesOnlyTheSaveMember) {
    AddDevice("qdf300_hart.json");
    Open();
    ASSERT_EQ(Store().HART_SimpleTempUnitSave, 32);
    module->ISDKObserverCallback_Update(0, Value(35));
    EXPECT_EQ(Store().HART_SimpleTempUnitSave, 32);
    ASSERT_TRUE(host.Device(0).SetValue("et_units", Value(33)));
    EXPECT_EQ(Store().HART_SimpleTempUnitSave, 33);
    EXPECT_EQ(Store().Xmtr_SimpleTempUnit, 32);
}

// Catches the debug flag of the machine settings not opening the Flow Param entries.
TEST_F(HostedModule, RegistryDebugFlagOpensFlowParamMenus) {
    AddDevice("qdf300_hart.json");
    WriteRegistry(
        "[SOFTWARE\\TAVRIN\\DTMs\\SondraCommon]\nPath=/inst/\n"
        "[SOFTWARE\\TAVRIN\\DTMs\\QDFSondra]\nMgt_DebugModeFlag=1\nWord=dword:0000001A\n");
    Open();
    EXPECT_EQ(Store().Mgt_DebugModeFlag, 1);
    EXPECT_TRUE(Main().MenuImportFlowParamMgt->isVisible());
    EXPECT_EQ(Store().Mgt_HelpFilePath, "/inst/");
    std::string v;
    EXPECT_TRUE(
        module::GetKeyValue(module::RootKey::LocalMachine, module::kQDFSondraKey, "Word", v));
    EXPECT_EQ(v, "26");
    EXPECT_FALSE(
        module::GetKeyValue(module::RootKey::LocalMachine, module::kQDFSondraKey, "None", v));
    EXPECT_EQ(v, "");
    EXPECT_FALSE(module::GetKeyValue(module::RootKey::CurrentUser, module::kQDFSondraKey,
                                     "Mgt_DebugModeFlag", v));
}

// Catches observers left registered or the store kept after the frame's disconnect question.
TEST_F(HostedModule, QueryDisconnectReleasesEverything) {
    AddDevice("qdf300_hart.json");
    Open();
    ASSERT_EQ(host.Manager()->AdvisedCount(), 2);
    EXPECT_EQ(module->ISDKModule_QueryDisconnect(), 4);
    EXPECT_EQ(host.Manager()->AdvisedCount(), 0);
    EXPECT_EQ(module->Store(), nullptr);
    EXPECT_TRUE(Main().isHidden());
    EXPECT_EQ(Main().Store(), nullptr);
}

// Catches scroll bars that do not appear, or that move the wizard the wrong way.
TEST_F(HostedModule, HostedAreaScrollsOverTheWizard) {
    AddDevice("qdf300_hart.json");
    Open();
    module->show();
    module->resize(300, 200);
    const StdScrollBars& bars = module->Scroller();
    ASSERT_NE(bars.horizontal, nullptr);
    EXPECT_FALSE(bars.horizontal->isHidden());
    EXPECT_FALSE(bars.vertical->isHidden());
    bars.horizontal->setValue(50);
    bars.vertical->setValue(30);
    EXPECT_EQ(Main().x(), -50);
    EXPECT_EQ(Main().y(), -30);
    module->resize(2000, 1500);
    EXPECT_TRUE(bars.horizontal->isHidden());
    EXPECT_TRUE(bars.vertical->isHidden());
    EXPECT_EQ(Main().pos(), QPoint(0, 0));
}

namespace {

// The demo HART device with one parameter's enumeration replaced (an empty list: none at all).
frame::FrameDevice HartWithEnumeration(const char* parameter, const QJsonArray& enumeration) {
    QFile f(QDF_SOURCE_DIR "/data/devices/qdf300_hart.json");
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    QJsonObject json = QJsonDocument::fromJson(f.readAll()).object();
    QJsonArray params = json["parameters"].toArray();
    for (qsizetype i = 0; i < params.size(); ++i) {
        QJsonObject p = params[i].toObject();
        if (p["name"].toString() != parameter) continue;
        if (enumeration.isEmpty())
            p.remove("enumeration");
        else
            p["enumeration"] = enumeration;
        params[i] = p;
    }
    json["parameters"] = params;
    QString error;
    auto device = frame::FrameDevice::FromJson(json, &error);
    EXPECT_TRUE(device) << error.toStdString();
    return std::move(*device);
}

std::string LogText(const QTemporaryDir& dir) {
    QFile f(dir.filePath("QDFSondra.log"));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll().toStdString();
}

constexpr int kStaticPressureUnitsEntry = 15;  // id 50 in registration order

}  // namespace

// Catches a HART device with a missing or malformed unit list that leaves every user
// read-only without a word (the load stopped before the role), a user name, tag or date never
// set, a message shown more than once or not naming the parameter, and a lookup failure that
// is neither recorded nor logged.
TEST_F(HostedModule, BrokenUnitListFinishesTheLoadWithEmptyListsAndSaysSo) {
    const std::string pressText =
        "The device's unit list static_pressure_units is missing or unreadable. No unit can be "
        "selected from it.";
    struct Case {
        const char* parameter;
        QJsonArray enumeration;
        std::string message;
        std::string failure;  // of the lookup of static_pressure_units
    };
    const std::vector<Case> cases = {
        {"static_pressure_units",
         {},
         pressText,
         "reading attribute 9 of static_pressure_units: the frame has no such attribute"},
        {"static_pressure_units", {"12:kPa", "kPa"}, pressText, ""},
        {"static_pressure_units", {"99999:huge"}, pressText, ""},
        {"et_units",
         {"degC"},
         "The device's unit list et_units is missing or unreadable. No unit can be selected "
         "from it.",
         ""},
    };
    setenv("QDF_LOG_DIR", dir.path().toLocal8Bit().constData(), 1);
    for (const Case& c : cases) {
        const std::string where =
            std::string(c.parameter) + " " + QJsonDocument(c.enumeration).toJson().toStdString();
        QFile::remove(dir.filePath("QDFSondra.log"));
        messages.shown.clear();
        const int index = host.DeviceCount();
        host.AddDevice(HartWithEnumeration(c.parameter, c.enumeration));
        host.user = {2, "Akiko"};
        Open(index);
        ASSERT_EQ(module->CompletionCount(), 1) << where;
        EXPECT_TRUE(module->LoadScreen()->isHidden()) << where;
        EXPECT_EQ(Texts(), std::vector<std::string>{c.message}) << where;
        EXPECT_EQ(messages.shown[0].title, "QDF300 Warning") << where;
        EXPECT_EQ(messages.shown[0].kind, 1) << where;
        EXPECT_EQ(Store().readonly(), kFalse) << where;
        EXPECT_EQ(Store().Mgt_UserRole, "Maintenance") << where;
        EXPECT_EQ(Store().Mgt_UserName, "Akiko") << where;
        EXPECT_EQ(Store().Xmtr_Tag, "FT-101") << where;
        EXPECT_FALSE(Store().Mgt_ConfDate.empty()) << where;
        const bool press = std::string(c.parameter) == "static_pressure_units";
        EXPECT_EQ(Store().Getpress_units().size(), press ? 0u : 19u) << where;
        EXPECT_EQ(Store().Gettemp_units().size(), press ? 3u : 0u) << where;
        EXPECT_EQ(Main().ctlSetupMode1->cboRefStPres->count(), press ? 0 : 19) << where;

        const ObservedVariable& e = module->Entry(kStaticPressureUnitsEntry);
        EXPECT_EQ(e.name, "static_pressure_units");
        EXPECT_NE(e.variable, nullptr) << where;
        EXPECT_EQ(e.failure, c.failure) << where;
        const std::string log = LogText(dir);
        EXPECT_NE(log.find(c.message), std::string::npos) << where << log;
        if (!c.failure.empty()) {
            EXPECT_NE(log.find(c.failure), std::string::npos) << log;
        }
        host.CloseModuleNow();
    }
    unsetenv("QDF_LOG_DIR");
}

// Catches a value whose observation the frame refused: the load must neither wait for it
// for good nor swallow the refusal, and the value reads as empty.
TEST_F(HostedModule, RefusedObservationIsRecordedLoggedAndNotWaitedFor) {
    AddDevice("qdf300_hart.json");
    host.options.failObservingOf = "ref_temp";
    setenv("QDF_LOG_DIR", dir.path().toLocal8Bit().constData(), 1);
    Open();
    unsetenv("QDF_LOG_DIR");
    ASSERT_EQ(module->CompletionCount(), 1);
    const ObservedVariable& e = module->Entry(5);  // id 39
    EXPECT_EQ(e.id, 39);
    EXPECT_NE(e.variable, nullptr);
    EXPECT_EQ(e.failure, "observing ref_temp: the frame cannot observe ref_temp");
    EXPECT_TRUE(e.value.isEmpty());
    EXPECT_EQ(Store().Xmtr_SimpleRefTemp, 0.0);
    EXPECT_NE(LogText(dir).find("\"observing ref_temp: the frame cannot observe ref_temp\""),
              std::string::npos)
        << LogText(dir);
    EXPECT_EQ(host.Manager()->AdvisedCount(), 2);
}

// Catches a module that, shut down while loading, still takes late values and completes the
// load on a store that no longer exists, or leaves the loading registrations with the frame.
TEST_F(HostedModule, LateValuesAfterQueryDisconnectAreIgnored) {
    AddDevice("qdf300_hart.json");
    host.options.firstValueAtOnce = false;
    Open();
    ASSERT_TRUE(module->AllRequested());
    EXPECT_EQ(module->ISDKModule_QueryDisconnect(), 4);
    EXPECT_EQ(host.Manager()->AdvisedCount(), 0);
    EXPECT_FALSE(module->AllRequested());
    host.Manager()->DeliverPending();
    // A frame that delivers all the same, to every entry the load was waiting for.
    for (int i = 0; i < TVRQDFFlowConfigWizard::kEntryCount; ++i)
        if (module->Entry(i).variable)
            module->ISDKObserverCallback_Update(module->Entry(i).id, Value(std::int32_t{2}));
    EXPECT_EQ(module->CompletionCount(), 0);
    EXPECT_EQ(module->Store(), nullptr);
    EXPECT_TRUE(Main().isHidden());
    EXPECT_TRUE(module->LoadScreen()->isHidden());
}
