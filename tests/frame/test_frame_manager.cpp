// The frame side of the module interfaces on the demo devices: lookups, observation, writes,
// business objects and the project file.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "../common/StoreMembers.h"
#include "FrameManager.h"
#include "FrameProject.h"
#include "FrameTestSupport.h"
#include "ModDownload.h"
#include "clsAsyncStatus.h"
#include "clsExGlobalVars.h"

namespace qdf::frame {
namespace {

using namespace qdf::sdk;

struct Recorder : ISDKObserverCallback {
    std::vector<std::pair<std::int32_t, Value>> updates;
    void ISDKObserverCallback_Update(std::int32_t id, const Value& v) override {
        updates.emplace_back(id, v);
    }
};

// Registers the observer the way the module does; returns the handle.
std::int32_t Observe(FrameManager& m, const std::string& name, std::int32_t attr, std::int32_t id,
                     Recorder& r, ISDKAttribute** out = nullptr) {
    ISDKVariable* v = m.FindVariable(kVariableKindParameter, name);
    if (v == nullptr) return 0;
    ISDKAttribute* a = m.OpenVariable(v)->GetAttribute(attr);
    if (a == nullptr) return 0;
    const std::int32_t h = a->Advise(id, &r);
    a->StartObserving(h);
    if (out) *out = a;
    return h;
}

TEST(FrameManager, LookupsFollowTheDeviceDescriptionAndTheBus) {
    // Catches a frame that invents variables (the load would wait for them), or lacks the user
    // parameters or a name the wizard looks up on that bus.
    ScriptedMessageService msgs;
    for (const testdata::Row& r : testdata::Load("tests/frame/data/lookups.csv")) {
        FrameDevice device = Demo(r.text("device").c_str());
        FrameManager m(device, {2, "anna"}, msgs);
        EXPECT_EQ(m.FindVariable(kVariableKindParameter, r.text("name")) != nullptr,
                  r.integer("found") == 1)
            << r.where();
        // Only parameters are looked up by name.
        EXPECT_EQ(m.FindVariable(2, "tag"), nullptr);
    }
}

TEST(FrameManager, ObservationDeliversAtOnceThenChangesUntilStopped) {
    // Catches a first value that waits for a change (the module would never finish loading),
    // deliveries after StopObserving, or the wrong id handed back.
    ScriptedMessageService msgs;
    FrameDevice hart = Demo("qdf300_hart.json");
    FrameManager m(hart, {3, "anna"}, msgs);
    Recorder r;
    ISDKAttribute* unit = nullptr;
    const std::int32_t h = Observe(m, "et_units", kAttributeValue, 43, r, &unit);
    Observe(m, "__DDC__FDTUserLevel", kAttributeValue, 33, r);
    Observe(m, "__DDC__FDTUserName", kAttributeValue, 34, r);
    Observe(m, "static_pressure_units", kAttributeEnumeration, 50, r);
    ASSERT_EQ(r.updates.size(), 4u);
    EXPECT_EQ(r.updates[0], std::make_pair(43, Value(std::int32_t{32})));
    EXPECT_EQ(r.updates[1], std::make_pair(33, Value(std::int32_t{3})));
    EXPECT_EQ(r.updates[2], std::make_pair(34, Value("anna")));
    ASSERT_TRUE(r.updates[3].second.isStringArray());
    EXPECT_EQ(r.updates[3].second.strings().size(), 19u);
    EXPECT_EQ(r.updates[3].second.strings().front(), "1:inH2O @ 68degF");

    m.GetParameterWriter()->WriteValue(m.FindVariable(1, "qdf_menu_diameter_config"),
                                       m.FindVariable(1, "et_units"), Value(std::int32_t{33}),
                                       nullptr);
    ASSERT_EQ(r.updates.size(), 5u);
    EXPECT_EQ(r.updates[4], std::make_pair(43, Value(std::int32_t{33})));

    unit->StopObserving(h);
    unit->Unadvise(h);
    hart.SetValue("et_units", Value(std::int32_t{35}));
    EXPECT_EQ(r.updates.size(), 5u);
    // A parameter without enumeration entries has no list attribute.
    EXPECT_EQ(m.OpenVariable(m.FindVariable(1, "ref_sp"))->GetAttribute(kAttributeEnumeration),
              nullptr);
}

TEST(FrameManager, HeldBackAndWithheldValuesForLoadTests) {
    // Catches the test knobs delivering anyway, which would hide a module waiting forever.
    ScriptedMessageService msgs;
    FrameDevice hart = Demo("qdf300_hart.json");
    FrameOptions o;
    o.firstValueAtOnce = false;
    o.neverDeliver = {"tag"};
    FrameManager m(hart, {2, "x"}, msgs, o);
    Recorder r;
    Observe(m, "tag", kAttributeValue, 35, r);
    Observe(m, "ref_sp", kAttributeValue, 38, r);
    EXPECT_TRUE(r.updates.empty());
    m.DeliverPending();
    ASSERT_EQ(r.updates.size(), 1u);
    EXPECT_EQ(r.updates[0].first, 38);
}

struct DownloadCase {
    const char* file;
    const char* bus;
    std::int32_t mode;
    std::size_t writes;
};

TEST(FrameManager, EveryDownloadListLandsCompletelyInTheDemoDevices) {
    // Catches a demo device that lacks a menu or parameter of a list (the row would be skipped
    // silently) or a written value that doesn't reach the offline data.
    for (const DownloadCase& c : {DownloadCase{"qdf300_hart.json", "HART", 1, 9},
                                  DownloadCase{"qdf300_hart.json", "HART", 0, 50},
                                  DownloadCase{"qdf300_ffh1.json", "FFH1", 1, 8},
                                  DownloadCase{"qdf300_ffh1.json", "FFH1", 0, 47}}) {
        SCOPED_TRACE(std::string(c.bus) + " mode " + std::to_string(c.mode));
        ScriptedMessageService msgs;
        FrameDevice dev = Demo(c.file);
        FrameManager m(dev, {2, "x"}, msgs);
        clsExGlobalVars s;
        s.SDKManager = &m;
        s.BusID = c.bus;
        s.Xmtr_SimpleFlowCalcMode = c.mode;
        testdata::ApplyMembers(s, "tests/frame/data/download_store.json");
        qdf::host::DownloadToFrame(s);
        EXPECT_EQ(m.Writes().size(), c.writes);
        EXPECT_EQ(dev.writes.size(), c.writes);
        if (std::string(c.bus) == "HART" && c.mode == 1) {
            EXPECT_EQ(dev.Find("static_pressure_units")->value, Value(std::int32_t{7}));
            EXPECT_EQ(dev.Find("ref_sp")->value, Value(3.5));
        }
        if (std::string(c.bus) == "HART" && c.mode == 0) {
            // The 16-bit zero lands as the parameter's own type.
            EXPECT_EQ(dev.Find("density_coef_12")->value, Value(0.0));
            EXPECT_EQ(dev.Find("density_coef_11")->value, Value(11.5));
            EXPECT_EQ(dev.Find("flow_calc_mode")->value, Value(std::int32_t{0}));
        }
        if (std::string(c.bus) == "FFH1" && c.mode == 0) {
            EXPECT_EQ(dev.Find("FLOW_TRANSDUCER_BLOCK.0.FLOW_CONFIG3.ENTRY16")->value, Value(15.5));
            EXPECT_EQ(dev.Find("FLOW_TRANSDUCER_BLOCK.0.CONFIG_WHO")->value, Value("Maintenance"));
        }
    }
}

TEST(FrameManager, RefusedWriteKeepsEarlierRowsAndTheUserSettingsAreReadOnly) {
    // Catches a frame that drops earlier writes on failure, or lets a module overwrite the
    // user level.
    ScriptedMessageService msgs;
    FrameDevice dev = Demo("qdf300_hart.json");
    FrameOptions o;
    o.failWriteOf = "flow_calc_fixed";
    FrameManager m(dev, {2, "x"}, msgs, o);
    clsExGlobalVars s;
    s.SDKManager = &m;
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 1;
    s.Xmtr_SimpleStaticPressUnit = 7;
    s.Xmtr_SimpleTempUnit = 33;
    s.Xmtr_SimpleDensityBase = 2.0;
    s.Xmtr_SimpleFluidTypeCode = 1;
    EXPECT_THROW(qdf::host::DownloadToFrame(s), SDKError);
    EXPECT_EQ(dev.writes.size(), 5u);
    EXPECT_EQ(dev.Find("fluid_type")->value, Value(std::int32_t{1}));
    EXPECT_EQ(dev.Find("flow_calc_fixed")->value, Value(1.0));

    auto w = m.GetParameterWriter();
    EXPECT_THROW(
        w->WriteValue(m.FindVariable(1, "qdf_menu_dummy"), m.FindVariable(1, "__DDC__FDTUserLevel"),
                      Value(std::int32_t{3}), nullptr),
        SDKError);
    // A parameter passed where the group belongs.
    EXPECT_THROW(w->OpenMenu(m.FindVariable(1, "ref_sp"), nullptr), SDKError);
}

TEST(FrameProject, BusinessObjectAndOfflineDataSurviveSaveAndOpen) {
    // Catches bytes lost or altered on the way through the project file, a business object
    // shared between devices, or written parameters not saved.
    QTemporaryDir dir;
    const QString path = dir.filePath("plant.qdfproject");
    const std::vector<std::uint8_t> bytes = {0, 1, 2, 0xff, 0x80, 'Q', 0};
    {
        FrameHost host;
        host.AddDevice(Demo("qdf300_hart.json"));
        host.AddDevice(Demo("qdf300_ffh1.json"));
        ScriptedMessageService msgs;
        FrameManager m(host.Device(0), host.user, msgs);
        qdf::host::clsAsyncStatus st;
        m.RequestBusinessObject("TVRQDFFCWBO", &st);
        ASSERT_NE(st.result.object, nullptr);
        EXPECT_TRUE(st.result.object->ReadData().empty());
        st.result.object->WriteData(bytes);
        ASSERT_TRUE(host.Device(0).SetValue("ref_sp", Value(250.0)));
        QString error;
        ASSERT_TRUE(host.SaveProject(path, &error)) << error.toStdString();
    }
    FrameHost host;
    QString error;
    ASSERT_TRUE(host.OpenProject(path, &error)) << error.toStdString();
    ASSERT_EQ(host.DeviceCount(), 2);
    EXPECT_EQ(host.Device(0).Find("ref_sp")->value, Value(250.0));
    EXPECT_EQ(host.Device(1).Bus(), "FFH1");
    ScriptedMessageService msgs;
    FrameManager m0(host.Device(0), host.user, msgs);
    FrameManager m1(host.Device(1), host.user, msgs);
    qdf::host::clsAsyncStatus s0, s1;
    m0.RequestBusinessObject("TVRQDFFCWBO", &s0);
    m1.RequestBusinessObject("TVRQDFFCWBO", &s1);
    EXPECT_EQ(s0.result.object->ReadData(), bytes);
    EXPECT_TRUE(s1.result.object->ReadData().empty());
    EXPECT_TRUE(s0.IsFinished());

    // A broken project file leaves the open project alone.
    QFile bad(dir.filePath("bad.qdfproject"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("{\"format\":\"qdf-frame-project\",\"devices\":[{\"bus\":\"CAN\"}]}");
    bad.close();
    EXPECT_FALSE(host.OpenProject(bad.fileName(), &error));
    EXPECT_EQ(host.DeviceCount(), 2);

    FrameOptions none;
    none.provideBusinessObject = false;
    FrameManager m2(host.Device(0), host.user, msgs, none);
    qdf::host::clsAsyncStatus s2;
    m2.RequestBusinessObject("TVRQDFFCWBO", &s2);
    EXPECT_TRUE(s2.result.isEmpty());
}

TEST(FrameProject, BrokenFilesAreRefusedNamingTheFileAndThePlace) {
    // Catches a broken device description or project taken in part or silently as empty (a
    // parameter list that is no list, a non-text enumeration entry read as ""), or an error that
    // does not say which file and where.
    const std::string param = R"({"name": "ref_sp", "type": "float", "value": 1})";
    auto device = [&](const std::string& extra) {
        return R"({"bus": "HART", "parameters": [)" + param + "]" + extra + "}";
    };
    struct Case {
        std::string text;
        const char* deviceError;  // as a device file "d.json"
    };
    const std::vector<Case> cases = {
        {"{\n  \"bus\": \"HART\",\n  \"parameters\": [}", "d.json: line 3, column 19: "},
        {"[1]", "d.json: not a device description (no JSON object)"},
        {R"({"bus": "CAN", "parameters": []})", R"(d.json: bus: must be "HART" or "FFH1")"},
        {R"({"bus": "HART"})", "d.json: parameters: not a list"},
        {R"({"bus": "HART", "parameters": {}})", "d.json: parameters: not a list"},
        {R"({"bus": "HART", "parameters": [7]})", "d.json: parameters[0]: not an object"},
        {R"({"bus": "HART", "revision": 1.5, "parameters": []})",
         "d.json: revision: not a whole number"},
        {R"({"bus": "HART", "parameters": [{"type": "float", "value": 1}]})",
         "d.json: parameters[0]: a parameter without a name"},
        {R"({"bus": "HART", "parameters": [{"name": "x", "type": "long", "value": 1}]})",
         "d.json: parameters[0] (x).type: unknown type"},
        {R"({"bus": "HART", "parameters": [{"name": "x", "type": "int16", "value": 70000}]})",
         "d.json: parameters[0] (x).value: not a value of its type"},
        {R"({"bus": "HART", "parameters": [{"name": "x", "type": "int16", "value": 1,
             "enumeration": ["1:a", 2]}]})",
         "d.json: parameters[0] (x).enumeration[1]: not a text"},
        {R"({"bus": "HART", "parameters": [)" + param + "," + param + "]}",
         "d.json: parameters[1] (ref_sp): named twice"},
        {device(R"(, "menus": {"m": ["ref_sp", "nothing"]})"),
         "d.json: menus.m[1]: names unknown parameter nothing"},
        {device(R"(, "menus": {"m": "ref_sp"})"), "d.json: menus.m: not a list"},
        {device(R"(, "businessObjects": {"BO": "***"})"), "d.json: businessObjects.BO: not base64"},
    };
    for (const Case& c : cases) {
        QString error;
        EXPECT_FALSE(FrameDevice::FromBytes(QByteArray::fromStdString(c.text), "d.json", &error))
            << c.text;
        EXPECT_TRUE(error.toStdString().starts_with(c.deviceError)) << error.toStdString();
    }

    // In a project the place runs from the project's root; the devices read before stay out.
    const std::string good = device("");
    const std::vector<std::pair<std::string, std::string>> projects = {
        {R"({"format": "qdf-frame-project", "devices": [)" + good + R"(, {"bus": "CAN"}]})",
         R"(p.qdfproject: devices[1].bus: must be "HART" or "FFH1")"},
        {R"({"format": "qdf-frame-project", "devices": [)" + good + R"(, 3]})",
         "p.qdfproject: devices[1]: not an object"},
        {R"({"format": "qdf-frame-project", "devices": {}})", "p.qdfproject: devices: not a list"},
        {R"({"format": "other", "devices": []})", "p.qdfproject: not a frame project"},
        {"{\"format\": ", "p.qdfproject: line 1, column 12: "},
    };
    for (const auto& [text, why] : projects) {
        QString error;
        EXPECT_FALSE(ReadProjectFile(QByteArray::fromStdString(text), "p.qdfproject", &error))
            << text;
        EXPECT_TRUE(error.toStdString().starts_with(why)) << error.toStdString();
    }
    QString error;
    auto read = ReadProjectFile(
        QByteArray::fromStdString(R"({"format": "qdf-frame-project", "devices": [)" + good + "]}"),
        "p.qdfproject", &error);
    ASSERT_TRUE(read) << error.toStdString();
    ASSERT_EQ(read->size(), 1u);
    EXPECT_EQ(read->front().Find("ref_sp")->value, Value(1.0f));
}

}  // namespace
}  // namespace qdf::frame
