// The variable store: arrays and bounds, property bag keys and restore, units, roles, names.

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "ModDefaults.h"
#include "PropertyBag.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

using qdf::clsExGlobalVars;
using qdf::PropertyBag;
using qdf::Value;
namespace testdata = qdf::testdata;

namespace {

// Sets a locale variable for one test and puts the old value back.
class ScopedLocale {
  public:
    explicit ScopedLocale(const char* value) {
        if (const char* old = std::getenv("LC_ALL")) old_ = old;
        setenv("LC_ALL", value, 1);
    }
    ~ScopedLocale() {
        if (old_)
            setenv("LC_ALL", old_->c_str(), 1);
        else
            unsetenv("LC_ALL");
    }

  private:
    std::optional<std::string> old_;
};

// The persisted order, expanded from the table of members and array bounds.
std::vector<std::string> ExpectedBagKeys() {
    std::vector<std::string> keys;
    for (const auto& row : testdata::Load("tests/model/data/property_bag_keys.csv")) {
        const std::string key = "m_" + row.text("member");
        if (!row.has("upper")) {
            keys.push_back(key);
            continue;
        }
        for (int i = 0; i <= row.integer("upper"); ++i)
            keys.push_back(key + "_" + std::to_string(i));
        keys.push_back(key + "_arrayIndex");
    }
    return keys;
}

std::vector<std::string> KeysOf(const PropertyBag& bag) {
    std::vector<std::string> keys;
    for (const auto& [k, v] : bag.entries()) keys.emplace_back(k);
    return keys;
}

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

}  // namespace

TEST(PropertyBagKeys, WrittenInTheContractOrder) {
    // Catches a key missing, added, renamed or moved in the persisted form.
    clsExGlobalVars s;
    s.InitializePropertyBagFromVars();
    const std::vector<std::string> expected = ExpectedBagKeys();
    EXPECT_EQ(KeysOf(*s.propertyBag), expected);
    EXPECT_EQ(qdf::PropertyBagKeys(s), expected);
    EXPECT_EQ(s.propertyBag->ReadProperty("m_UI_Dens_arrayIndex"), Value(std::int32_t{256}));
    EXPECT_EQ(s.propertyBag->ReadProperty("m_Xmtr_arrayIndex"), Value(std::int32_t{150}));
}

TEST(PropertyBagKeys, PersistedFlagsMatchTheBag) {
    // Catches a member persisted in the registry (and so in JSON) but absent from the bag, or
    // the reverse; transmitter polynomials, page list and links never persist.
    std::set<std::string> inBag;
    for (std::string_view e : qdf::PropertyBagOrder())
        inBag.insert(std::string(e.ends_with('_') ? e.substr(0, e.size() - 1) : e));
    std::set<std::string> persisted;
    for (const qdf::MemberInfo& m : qdf::StoreMembers())
        if (m.persisted) persisted.insert(std::string(m.name));
    EXPECT_EQ(persisted, inBag);
    for (const char* never : {"Xmtr_DensCoeff", "PageList", "XLsqr", "CurrentPage", "tag",
                              "Gbl_ReportFilePath", "Xmtr_SimpleRefTemp", "press_units"})
        EXPECT_EQ(inBag.count(never), 0u) << never;
}

TEST(PropertyBagRoundTrip, EveryValueComesBackExactly) {
    // Catches rounding of doubles or loss of a value's kind in the byte form and the restore.
    clsExGlobalVars a;
    qdf::InitializeDefaults(a);
    a.UI_AtmPress = 0.1 + 0.2;
    a.UI_RangeP1 = std::numeric_limits<double>::denorm_min();
    a.UI_RangeP2 = -0.0;
    a.calc_DensitySigma = 1.0 / 3.0;
    a.Y21[20] = 1e300;
    a.UI_Dens[256] = 123.456;
    a.UI_RangeTUnit = 35;
    a.Gbl_ReadyToSave = qdf::kTrue;
    a.UI_FluidName = "M\xC3\xA9thane \"x\",\r\n";
    a.UI[0] = Value(std::int32_t{7});
    a.UI[1] = Value("text");
    a.UI[1000] = Value(2.5);
    a.Mgt[80] = "last";
    a.Xmtr_Reserve30 = "r30";
    a.Mgt_ConfigCompleteFlag = 1;
    a.Mgt_DisplayCurrentValueFlag = 0;
    a.InitializePropertyBagFromVars();

    const auto restored = PropertyBag::FromBytes(a.propertyBag->Contents());
    ASSERT_TRUE(restored);
    EXPECT_EQ(*restored, *a.propertyBag);

    clsExGlobalVars b;
    b.propertyBag = std::make_shared<PropertyBag>(*restored);
    b.InitializeVarsFromPropertyBag();
    for (const qdf::MemberInfo& m : qdf::StoreMembers()) {
        if (!m.persisted || qdf::NotReadBackFromBag(m.name)) continue;
        EXPECT_EQ(qdf::MemberToJson(a, m).dump(), qdf::MemberToJson(b, m).dump()) << m.name;
    }
    EXPECT_TRUE(SameBits(b.UI_RangeP2, -0.0));
    EXPECT_TRUE(SameBits(b.UI_AtmPress, 0.1 + 0.2));
    EXPECT_EQ(b.UI[0], Value(std::int32_t{7}));
    EXPECT_EQ(b.UI[1], Value("text"));
    EXPECT_EQ(b.UI[2], Value());
    EXPECT_EQ(b.Gbl_ReadyToSave, qdf::kTrue);
    EXPECT_EQ(b.Mgt_ConfigCompleteFlag, 1);
    EXPECT_EQ(b.Mgt_DisplayCurrentValueFlag, 0);
}

TEST(PropertyBagRoundTrip, SessionValuesAreNotReadBack) {
    // Catches a restore that overwrites what describes the present session.
    clsExGlobalVars a;
    a.Mgt_ProgramName = "old";
    a.Mgt_OnlineModeFlag = 1;
    a.Mgt_DebugModeFlag = 1;
    a.Mgt_FldCommType = 1;
    a.CurrPMFDrive = "D:";
    a.Mgt_UserRole = "Observer";
    a.InitializePropertyBagFromVars();
    EXPECT_EQ(a.propertyBag->ReadProperty("m_Mgt_OnlineModeFlag"), Value(std::int32_t{1}));

    clsExGlobalVars b;
    b.Mgt_ProgramName = "QDFSondra";
    b.Mgt_UserRole = "Maintenance";
    b.propertyBag = a.propertyBag;
    b.InitializeVarsFromPropertyBag();
    EXPECT_EQ(b.Mgt_ProgramName, "QDFSondra");
    EXPECT_EQ(b.Mgt_OnlineModeFlag, 0);
    EXPECT_EQ(b.Mgt_DebugModeFlag, 0);
    EXPECT_EQ(b.Mgt_FldCommType, 0);
    EXPECT_EQ(b.CurrPMFDrive, "");
    EXPECT_EQ(b.Mgt_UserRole, "Maintenance");
}

TEST(PropertyBagRoundTrip, MissingAndUnreadableKeysLeaveMembersAlone) {
    // Catches a restore that stops at the first bad key or clears members the bag lacks.
    clsExGlobalVars s;
    s.UI_PEName = "kept";
    s.UI_PEType = 3;
    s.Y21[5] = 0.25;
    s.UI_FluidType = 1;
    auto bag = std::make_shared<PropertyBag>();
    bag->WriteProperty("m_UI_PEType", Value("not a number"));
    bag->WriteProperty("m_Y21_4", Value(0.5));
    bag->WriteProperty("m_Y21_arrayIndex", Value(std::int32_t{2}));  // bounds come from the store
    bag->WriteProperty("m_UI_AtmPress", Value(99.0));
    bag->WriteProperty("m_Xmtr_DensUnitCode", Value(1e12));  // overflows a 32-bit integer
    bag->WriteProperty("m_Xmtr_LenUnitCode", Value(std::int32_t{45}));
    s.propertyBag = bag;
    s.InitializeVarsFromPropertyBag();
    EXPECT_EQ(s.UI_PEName, "kept");
    EXPECT_EQ(s.UI_PEType, 3);
    EXPECT_EQ(s.UI_FluidType, 1);
    EXPECT_EQ(s.Y21[4], 0.5);
    EXPECT_EQ(s.Y21[5], 0.25);
    EXPECT_EQ(s.UI_AtmPress, 99.0);
    EXPECT_EQ(s.Xmtr_DensUnitCode, qdf::kNotEntered);
    EXPECT_EQ(s.Xmtr_LenUnitCode, 45);
}

TEST(StoreArrays, IndexesBeyondTheBoundsFail) {
    // Catches clipping or unchecked access at the fixed bounds, including the spare top elements.
    clsExGlobalVars s;
    EXPECT_THROW(s.UI.at(1001), std::out_of_range);
    EXPECT_THROW(s.PageList[1001], std::out_of_range);
    EXPECT_THROW(s.Mgt[81], std::out_of_range);
    EXPECT_THROW(s.Xmtr[151], std::out_of_range);
    EXPECT_THROW(s.Y21[-1], std::out_of_range);
    EXPECT_THROW(qdf::SetElement(s, "Xmtr", 151, Value("x")), std::out_of_range);
    EXPECT_THROW(qdf::GetElement(s, "UI", 1001), std::out_of_range);
    EXPECT_NO_THROW(s.UI.at(1000));
    EXPECT_NO_THROW(s.Mgt[80]);
    EXPECT_NO_THROW(s.Xmtr[150]);
    EXPECT_NO_THROW(s.UI_Dens[256]);
    EXPECT_NO_THROW(s.Xmtr_DensCoeff[18]);
    EXPECT_THROW(s.Xmtr_DensCoeff[19], std::out_of_range);
    EXPECT_THROW(s.Xmtr_DisCoeff[7], std::out_of_range);
    EXPECT_THROW(s.XLsqr(1, 0), std::out_of_range);
}

TEST(StoreArrays, WholeArrayGetCopiesAndSetWalksTheStoreBounds) {
    // Catches a get that aliases the store and a set that follows the argument's bounds.
    clsExGlobalVars s;
    std::vector<double> y = s.GetY21();
    ASSERT_EQ(y.size(), 21u);
    y[0] = 9.0;
    EXPECT_EQ(s.Y21[0], 0.0);

    std::vector<double> longer(30, 1.5);
    s.SetXAga(longer);
    EXPECT_EQ(s.XAga[5], 1.5);

    std::vector<double> shorter{1.0, 2.0, 3.0};
    EXPECT_THROW(s.Setc(shorter), std::out_of_range);
    EXPECT_EQ(s.c[2], 3.0);
    EXPECT_EQ(s.c[3], 0.0);

    s.PageList[3] = "ctlFluidSetup";
    s.CurrentPage = 3;
    s.ClearPageList();
    EXPECT_EQ(s.PageList[3], "");
    // Every caller starts the path again: a Back after it must find the bottom of the stack.
    EXPECT_EQ(s.CurrentPage, 0);
}

TEST(StoreRegistry, MembersByNameConvertLikeTheStoreSetters) {
    // Catches wrong kinds or coercions when formats set members by name.
    clsExGlobalVars s;
    qdf::SetMember(s, "UI_PEType", Value("2.5"));
    EXPECT_EQ(s.UI_PEType, 2);  // half to even
    qdf::SetMember(s, "UI_PEType", Value(3.5));
    EXPECT_EQ(s.UI_PEType, 4);
    qdf::SetMember(s, "Gbl_ReadyToSave", Value(true));
    EXPECT_EQ(s.Gbl_ReadyToSave, -1);
    EXPECT_EQ(qdf::GetMember(s, "Gbl_ReadyToSave"), Value(true));
    EXPECT_EQ(qdf::GetMember(s, "UI_RangeTUnit").kind(), Value::Kind::Int16);
    EXPECT_THROW(qdf::SetMember(s, "UI_RangeTUnit", Value(40000.0)), std::overflow_error);
    EXPECT_THROW(qdf::SetMember(s, "UI_AtmPress", Value("1e")), std::invalid_argument);
    qdf::SetMember(s, "UI_PEDiameterUnit", Value("1,000"));
    EXPECT_EQ(s.UI_PEDiameterUnit, 1000);
    qdf::SetMember(s, "UI_FluidName", Value(0.00001));
    EXPECT_EQ(s.UI_FluidName, "1E-05");
    qdf::SetMember(s, "UI_ChemID", Value(std::int32_t{7732}));
    EXPECT_EQ(s.UI_ChemID, "7732");
    EXPECT_THROW(qdf::SetMember(s, "readonly", Value(false)), std::invalid_argument);
    EXPECT_THROW(qdf::SetMember(s, "NoSuchMember", Value(1.0)), std::invalid_argument);
    EXPECT_THROW(qdf::GetMember(s, "Y21"), std::invalid_argument);

    // Declared order: the density sigma comes first.
    EXPECT_EQ(qdf::StoreMembers().front().name, "calc_DensitySigma");
}

TEST(StoreRegistry, EveryMemberIsFoundByItsOwnNameOnly) {
    // Catches a hash index that loses a member to a collision or answers for a near miss.
    const auto members = qdf::StoreMembers();
    ASSERT_GT(members.size(), 300u);
    for (const qdf::MemberInfo& m : members) {
        EXPECT_EQ(qdf::FindMember(m.name), &m) << m.name;
        const std::string name(m.name);
        EXPECT_EQ(qdf::FindMember(name + " "), nullptr) << m.name;
        EXPECT_EQ(qdf::FindMember(std::string(1, 'x') + name), nullptr) << m.name;
    }
    EXPECT_EQ(qdf::FindMember(""), nullptr);
    EXPECT_EQ(qdf::FindMember("ui_petype"), nullptr);
}

TEST(InitializeUnits, RoleTableAndUserName) {
    // Catches a wrong role row, an unknown level that clears the role, and the frame's name
    // stored as a user name.
    struct Case {
        Value level;
        Value user;
        std::int16_t readonly;
        const char* role;
        const char* userName;
    };
    const Case cases[] = {
        {Value(std::int32_t{0}), Value(""), -1, "Observer", "Observer"},
        {Value(std::int32_t{1}), Value("PACTware"), -1, "Operator", "Operator"},
        {Value(std::int32_t{2}), Value("Akiko"), 0, "Maintenance", "Akiko"},
        {Value("3"), Value("PACTware"), 0, "Planning Eng./Administrator",
         "Planning Eng./Administrator"},
        {Value(std::int32_t{4}), Value(""), -1, "earlier role", "earlier role"},
        {Value(std::int32_t{4}), Value("pactware"), -1, "earlier role", "pactware"},
    };
    for (const Case& c : cases) {
        clsExGlobalVars s;
        s.BusID = "FFH1";
        s.Mgt_UserRole = "earlier role";
        s.InitializeUnits(Value(), Value(), Value("TAG-1   "), c.level, c.user);
        EXPECT_EQ(s.readonly(), c.readonly) << c.role;
        EXPECT_EQ(s.Mgt_UserRole, c.role);
        EXPECT_EQ(s.Mgt_UserName, c.userName);
    }
}

TEST(InitializeUnits, SessionValues) {
    // Catches a tag trimmed on the wrong side, a missing revision copy or date.
    clsExGlobalVars s;
    s.BusID = "FFH1";
    s.Mgt_SoftRevNO = "1.05.00";
    s.XLsqr.ReDim(3, 4);
    s.InitializeUnits(Value(), Value(), Value("  FT-101  "), Value(std::int32_t{2}), Value("u"));
    EXPECT_EQ(s.tag, "  FT-101");
    EXPECT_EQ(s.Xmtr_Tag, "  FT-101");
    EXPECT_EQ(s.Mgt_CfgSoftRev, "1.05.00");
    EXPECT_EQ(s.varsChanged, qdf::kTrue);
    EXPECT_TRUE(s.propertyBag);
    EXPECT_EQ(s.XLsqr.upper(1), 0);
    EXPECT_EQ(s.XLsqr.upper(2), 0);
    // "yyyy-mm-dd hh:nn:ss"
    const std::string form = "dddd-dd-dd dd:dd:dd";
    ASSERT_EQ(s.Mgt_ConfDate.size(), form.size()) << s.Mgt_ConfDate;
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] == 'd')
            EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(s.Mgt_ConfDate[i])))
                << s.Mgt_ConfDate;
        else
            EXPECT_EQ(s.Mgt_ConfDate[i], form[i]) << s.Mgt_ConfDate;
    }
}

TEST(InitializeUnits, FieldbusListsFollowTheNation) {
    // Catches a wrong list, code or order for either nation on a device without unit lists.
    {
        ScopedLocale japan("ja_JP.UTF-8");
        clsExGlobalVars s;
        s.BusID = "FFH1";
        s.InitializeUnits(Value(std::vector<std::string>{"99:ignored"}), Value(), Value(""),
                          Value(std::int32_t{2}), Value(""));
        EXPECT_EQ(s.Getpress_units(),
                  (std::vector<std::string>{"bar", "mbar", "Pa", "kPa", "atm", "MPa", "hPa"}));
        EXPECT_EQ(s.Getpress_units_index(),
                  (std::vector<std::int16_t>{7, 8, 11, 12, 14, 237, 241}));
        EXPECT_EQ(s.Gettemp_units(), (std::vector<std::string>{"degC", "Kelvin"}));
        EXPECT_EQ(s.Gettemp_units_index(), (std::vector<std::int16_t>{32, 35}));
    }
    {
        ScopedLocale other("en_US.UTF-8");
        clsExGlobalVars s;
        s.BusID = "FFH1";
        s.InitializeUnits(Value(), Value(), Value(""), Value(std::int32_t{2}), Value(""));
        ASSERT_EQ(s.press_units.upper(), 18);
        EXPECT_EQ(s.press_units[0], "inH2O @ 68degF");
        EXPECT_EQ(s.press_units[5], "psi");
        EXPECT_EQ(s.press_units_index[5], 6);
        EXPECT_EQ(s.press_units[14], "MPa");
        EXPECT_EQ(s.press_units_index[14], 237);
        EXPECT_EQ(s.press_units[18], "hPa");
        EXPECT_EQ(s.press_units_index[18], 241);
        EXPECT_EQ(s.Gettemp_units(), (std::vector<std::string>{"degC", "degF", "Kelvin"}));
        EXPECT_EQ(s.Gettemp_units_index(), (std::vector<std::int16_t>{32, 33, 35}));
    }
}

TEST(InitializeUnits, HartListsComeFromTheDevice) {
    // Catches the nation leaking into HART lists, a split at the wrong colon, and a bad entry
    // that passes silently.
    ScopedLocale japan("ja_JP.UTF-8");
    clsExGlobalVars s;
    s.BusID = "HART";
    s.InitializeUnits(Value(std::vector<std::string>{"6:psi", "12:kPa", "250:a:b"}),
                      Value(std::vector<std::string>{"33:degF"}), Value(""), Value(std::int32_t{2}),
                      Value(""));
    EXPECT_EQ(s.Getpress_units(), (std::vector<std::string>{"psi", "kPa", "a:b"}));
    EXPECT_EQ(s.Getpress_units_index(), (std::vector<std::int16_t>{6, 12, 250}));
    EXPECT_EQ(s.Gettemp_units(), (std::vector<std::string>{"degF"}));
    EXPECT_EQ(s.Gettemp_units_index(), (std::vector<std::int16_t>{33}));
    EXPECT_THROW(s.press_units[3], std::out_of_range);

    EXPECT_TRUE(s.InitializeUnits(Value(std::vector<std::string>{"12:kPa"}),
                                  Value(std::vector<std::string>{"32:degC"}), Value(""),
                                  Value(std::int32_t{2}), Value(""))
                    .empty());
}

TEST(InitializeUnits, HartListMissingOrMalformedStaysEmptyAndTheRestGoesOn) {
    // Catches a missing or malformed device list that stops the role, user, tag and date from
    // being set (every user then read-only), one that leaves part of a list, or a list not
    // named for the message.
    using Strings = std::vector<std::string>;
    const Value good(Strings{"7:bar", "12:kPa"});
    struct Case {
        Value press;
        Value temp;
        Strings named;
    };
    const Case cases[] = {
        {Value(), Value(Strings{"32:degC"}), {"static_pressure_units"}},
        {Value("12:kPa"), Value(Strings{"32:degC"}), {"static_pressure_units"}},
        {Value(Strings{}), Value(Strings{"32:degC"}), {"static_pressure_units"}},
        {Value(Strings{"12:kPa", "kPa"}), Value(Strings{"32:degC"}), {"static_pressure_units"}},
        {Value(Strings{"12:kPa", "70000:x"}), Value(Strings{"32:degC"}), {"static_pressure_units"}},
        {good, Value(Strings{":degC"}), {"et_units"}},
        {Value(), Value(), {"static_pressure_units", "et_units"}},
    };
    for (const Case& c : cases) {
        const std::string where = c.press.isStringArray() && !c.press.strings().empty()
                                      ? c.press.strings().back()
                                      : "no list";
        clsExGlobalVars s;
        s.BusID = "HART";
        EXPECT_EQ(s.InitializeUnits(c.press, c.temp, Value("FT-7  "), Value(std::int32_t{2}),
                                    Value("Akiko")),
                  c.named)
            << where;
        const bool pressBad = c.named.front() == "static_pressure_units";
        const bool tempBad = c.named.back() == "et_units";
        EXPECT_EQ(s.Getpress_units(), pressBad ? Strings{} : Strings({"bar", "kPa"})) << where;
        EXPECT_EQ(s.Getpress_units_index().size(), pressBad ? 0u : 2u) << where;
        EXPECT_EQ(s.Gettemp_units(), tempBad ? Strings{} : Strings({"degC"})) << where;
        EXPECT_EQ(s.Gettemp_units_index().size(), tempBad ? 0u : 1u) << where;
        EXPECT_EQ(s.readonly(), qdf::kFalse) << where;
        EXPECT_EQ(s.Mgt_UserRole, "Maintenance") << where;
        EXPECT_EQ(s.Mgt_UserName, "Akiko") << where;
        EXPECT_EQ(s.Xmtr_Tag, "FT-7") << where;
        EXPECT_FALSE(s.Mgt_ConfDate.empty()) << where;
    }
}

TEST(DeviceParameterNames, LookupByBus) {
    // Catches a wrong or missing row, and an unknown name that raises instead of giving "".
    clsExGlobalVars s;
    EXPECT_EQ(s.GetDDName("HART", "tag"), "");
    s.Initialize();
    EXPECT_EQ(s.GetDDName("HART", "tag"), "tag");
    EXPECT_EQ(s.GetDDName("FFH1", "tag"), "__DDC_ADDONS.0.PD_TAG");
    EXPECT_EQ(s.GetDDName("FFH1", "DDC__FDTUserLevel"), "__DDC_ADDONS.0.__DDC__FDTUSERLEVEL");
    EXPECT_EQ(s.GetDDName("HART", "Xmtr_SimpleFlowCalcFixedVar"), "flow_calc_fixed");
    EXPECT_EQ(s.GetDDName("FFH1", "Xmtr_CONFIG_VSTRING16_2"),
              "FLOW_TRANSDUCER_BLOCK.0.CONFIG_VSTRING16.ENTRY2");
    EXPECT_EQ(s.GetDDName("HART", "Xmtr_CONFIG_DATE"), "");
    EXPECT_EQ(s.GetDDName("HART", "flow_units"), "");
    EXPECT_EQ(s.GetDDName("FFH1", "static_pressure_units"),
              "FLOW_TRANSDUCER_BLOCK.0.STATIC_PRESSURE_UNIT");
    EXPECT_EQ(s.ddNameTable()->size(), 46u);

    s.propertyBag = std::make_shared<PropertyBag>();
    s.PageList[0] = "ctlModeSelect";
    s.Terminate();
    EXPECT_FALSE(s.propertyBag);
    EXPECT_EQ(s.GetDDName("HART", "tag"), "");
    EXPECT_EQ(s.PageList[0], "");
}
