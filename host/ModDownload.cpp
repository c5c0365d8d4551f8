#include "ModDownload.h"

#include <functional>
#include <string>
#include <vector>

#include "ModDeviceParams.h"
#include "SDKFrame.h"
#include "clsExGlobalVars.h"

namespace qdf::host {

namespace {

using Store = clsExGlobalVars;

// One step of a list: a parameter write, or (with an empty parameter) an action on the store
// that must happen at exactly that point, since a failure further up must leave it undone.
struct Step {
    std::string menu;
    std::string parameter;
    std::function<Value(Store&)> value;
    std::function<void(Store&)> action;
};

Step Write(std::string menu, std::string parameter, std::function<Value(Store&)> value) {
    return {std::move(menu), std::move(parameter), std::move(value), {}};
}
Step Action(std::function<void(Store&)> action) {
    return {{}, {}, {}, std::move(action)};
}

Value I32(std::int32_t v) {
    return Value(v);
}
Value F64(double v) {
    return Value(v);
}
Value Zero16() {
    return Value(static_cast<std::int16_t>(0));
}

std::vector<Step> HartBasic() {
    return {
        Write("qdf_menu_dummy", "static_pressure_units",
              [](Store& s) { return I32(s.Xmtr_SimpleStaticPressUnit); }),
        Write("qdf_menu_diameter_config", "et_units",
              [](Store& s) { return I32(s.Xmtr_SimpleTempUnit); }),
        Write("qdf_menu_dummy", "simple_dens_base",
              [](Store& s) { return F64(s.Xmtr_SimpleDensityBase); }),
        Write("qdf_menu_basic_flow_calc", "flow_calc_mode",
              [](Store& s) { return I32(s.Xmtr_SimpleFlowCalcMode); }),
        Write("qdf_menu_basic_flow_calc", "fluid_type",
              [](Store& s) { return I32(s.Xmtr_SimpleFluidTypeCode); }),
        Write("qdf_menu_basic_flow_calc", "flow_calc_fixed",
              [](Store& s) { return F64(s.Xmtr_SimpleFlowCalcFixedVar); }),
        Write("qdf_menu_basic_flow_calc", "ref_sp",
              [](Store& s) { return F64(s.Xmtr_SimpleRefStaticPress); }),
        Write("qdf_menu_basic_flow_calc", "ref_temp",
              [](Store& s) { return F64(s.Xmtr_SimpleRefTemp); }),
        Write("qdf_menu_basic_flow_calc", "temp_k1",
              [](Store& s) { return F64(s.Xmtr_SimpleTempK1ForLqdVar); }),
    };
}

// Coefficient rows: element i of the array as a double, under name(i).
template <class Array>
void Coefficients(std::vector<Step>& list, const std::string& menu, int count,
                  const std::function<std::string(int)>& name, Array Store::*array) {
    for (int i = 0; i < count; ++i) {
        list.push_back(Write(menu, name(i), [array, i](Store& s) { return F64((s.*array)[i]); }));
    }
}

void ZeroSlots(std::vector<Step>& list, const std::string& menu, int first, int last,
               const std::function<std::string(int)>& name) {
    for (int i = first; i <= last; ++i) {
        list.push_back(Write(menu, name(i), [](Store&) { return Zero16(); }));
    }
}

std::string TwoDigits(int i) {
    return (i < 10 ? "0" : "") + std::to_string(i);
}

std::vector<Step> HartAuto() {
    std::vector<Step> list;
    list.push_back(
        Write("qdf_menu_basic_flow_calc", "flow_calc_mode", [](Store&) { return Zero16(); }));

    const std::string dis = "qdf_menu_ieee_discharge_coef";
    auto disName = [](int i) { return "discharge_coef_" + std::to_string(i); };
    Coefficients(list, dis, 5, disName, &Store::Xmtr_DisCoeff);
    ZeroSlots(list, dis, 5, 5, disName);

    const std::string exp = "qdf_menu_ieee_expansion_coef";
    auto expName = [](int i) { return "expansion_fact_coef_" + std::to_string(i); };
    Coefficients(list, exp, 3, expName, &Store::Xmtr_ExpFac);
    ZeroSlots(list, exp, 3, 5, expName);

    const std::string vis = "qdf_menu_ieee_viscosity_coef";
    auto visName = [](int i) { return "viscosity_coef_" + std::to_string(i); };
    Coefficients(list, vis, 4, visName, &Store::Xmtr_VisCoeff);
    ZeroSlots(list, vis, 4, 5, visName);

    const std::string den = "qdf_menu_ieee_density_coef";
    auto denName = [](int i) { return "density_coef_" + TwoDigits(i); };
    Coefficients(list, den, 12, denName, &Store::Xmtr_DensCoeff);
    ZeroSlots(list, den, 12, 17, denName);

    const std::string add = "qdf_menu_additional_flow_info";
    list.push_back(Write(add, "primary_device", [](Store& s) { return I32(s.Xmtr_PDCode); }));
    list.push_back(Write(add, "fluid_type", [](Store& s) { return I32(s.Xmtr_FluidTypeCode); }));
    list.push_back(Write(add, "density_unit", [](Store& s) { return I32(s.Xmtr_DensUnitCode); }));
    list.push_back(Write(add, "length_units", [](Store& s) { return I32(s.Xmtr_PDLenUnitCode); }));
    list.push_back(
        Write(add, "factor_alpha_small_d", [](Store& s) { return F64(s.Xmtr_PriDevTherExpFac); }));
    list.push_back(
        Write(add, "factor_alpha_large_d", [](Store& s) { return F64(s.Xmtr_PipeTherExpFac); }));

    const std::string dia = "qdf_menu_diameter_config";
    list.push_back(Write(dia, "length_units", [](Store& s) { return I32(s.Xmtr_LenUnitCode); }));
    list.push_back(Write(dia, "small_d_r", [](Store& s) { return F64(s.Xmtr_Smalld); }));
    list.push_back(Write(dia, "large_d_r", [](Store& s) { return F64(s.Xmtr_BigD); }));
    list.push_back(Action([](Store& s) {
        s.Xmtr_TSmallD = ConvertTemperature(s.UI_PETempStandard, s.HART_SimpleTempUnitSave);
        s.Xmtr_TBigD = ConvertTemperature(s.UI_PEPipeTempStandard, s.HART_SimpleTempUnitSave);
    }));
    list.push_back(Write(dia, "t_small_d_r", [](Store& s) { return F64(s.Xmtr_TSmallD); }));
    list.push_back(Write(dia, "t_large_d_r", [](Store& s) { return F64(s.Xmtr_TBigD); }));

    const std::string base = "qdf_menu_flow_base_density";
    list.push_back(
        Write(base, "density_unit", [](Store& s) { return I32(s.Xmtr_RefDensUnitCode); }));
    list.push_back(
        Write(base, "vol_flow_base_dens", [](Store& s) { return F64(s.Xmtr_VolFlowBaseDens); }));
    return list;
}

const std::string kBlock = "FLOW_TRANSDUCER_BLOCK.0.";

std::vector<Step> FFBasic() {
    const std::string menu = kBlock + "FTB_ORIGINAL_PARAMETER_MENU_PART1";
    auto w = [&](const char* name, std::function<Value(Store&)> value) {
        return Write(menu, kBlock + name, std::move(value));
    };
    return {
        w("STATIC_PRESSURE_UNIT", [](Store& s) { return I32(s.XmtrFF_FtbStaticPressUnit); }),
        w("EXT_TEMPERATURE_UNIT", [](Store& s) { return I32(s.XmtrFF_FtbTempUnitCode); }),
        w("FLOW_CALCULATION_MODE", [](Store& s) { return I32(s.Xmtr_SimpleFlowCalcMode); }),
        w("FIXED_FLOW_VALUE", [](Store& s) { return F64(s.Xmtr_SimpleFlowCalcFixedVar); }),
        w("REF_STATIC_PRESSURE", [](Store& s) { return F64(s.Xmtr_SimpleRefStaticPress); }),
        w("REF_EXT_TEMPERATURE", [](Store& s) { return F64(s.Xmtr_SimpleRefTemp); }),
        w("TEMP_K1_FOR_LIQUID", [](Store& s) { return F64(s.Xmtr_SimpleTempK1ForLqdVar); }),
        w("FLUID_TYPE_CODE", [](Store& s) { return I32(s.Xmtr_SimpleFluidTypeCode); }),
    };
}

std::vector<Step> FFAuto() {
    std::vector<Step> list;
    list.push_back(Action([](Store& s) {
        s.Xmtr_TSmallD = ConvertTemperatureFF(s.UI_PETempStandard, s.FF_FtbTempUnitCodeSave);
        s.Xmtr_TBigD = ConvertTemperatureFF(s.UI_PEPipeTempStandard, s.FF_FtbTempUnitCodeSave);
    }));
    auto w = [&](const char* menu, const std::string& name, std::function<Value(Store&)> value) {
        list.push_back(Write(kBlock + menu, kBlock + name, std::move(value)));
    };
    auto str = [](std::string Store::*m) { return [m](Store& s) { return Value(s.*m); }; };
    const char* p1 = "FTB_ORIGINAL_PARAMETER_MENU_PART1";
    const char* p2 = "FTB_ORIGINAL_PARAMETER_MENU_PART2";
    w(p1, "FLOW_CALCULATION_MODE", [](Store& s) { return I32(s.Xmtr_SimpleFlowCalcMode); });
    w(p1, "FLUID_TYPE_CODE", [](Store& s) { return I32(s.Xmtr_SimpleFluidTypeCode); });
    w(p2, "DENSITY_UNIT_CODE", [](Store& s) { return I32(s.XmtrFF_FtbDensUnitCode); });
    w(p2, "LENGTH_UNIT_CODE", [](Store& s) { return I32(s.XmtrFF_FtbLenUnitCode); });
    w(p2, "PRIMARY_DEVICE_CODE", [](Store& s) { return I32(s.Xmtr_PDCode); });
    w(p2, "PRIMARY_DEVICE_DIAMETER", [](Store& s) { return F64(s.Xmtr_Smalld); });
    w(p2, "PRIMARY_DEVICE_EXPANSION_COEF", [](Store& s) { return F64(s.Xmtr_PriDevTherExpFac); });
    w(p2, "PRIMARY_DEVICE_REF_TEMPERATURE", [](Store& s) { return F64(s.Xmtr_TSmallD); });
    w(p2, "PIPE_DIAMETER", [](Store& s) { return F64(s.Xmtr_BigD); });
    w(p2, "PIPE_EXPANSION_COEF", [](Store& s) { return F64(s.Xmtr_PipeTherExpFac); });
    w(p2, "PIPE_REF_TEMPERATURE", [](Store& s) { return F64(s.Xmtr_TBigD); });
    w(p2, "BASE_DENSITY_FOR_VOLUME_FLOW", [](Store& s) { return F64(s.Xmtr_VolFlowBaseDens); });

    auto entries = [&](const char* menu, const char* config, int count, auto array) {
        for (int i = 0; i < count; ++i) {
            w(menu, std::string(config) + ".ENTRY" + std::to_string(i + 1),
              [array, i](Store& s) { return F64((s.*array)[i]); });
        }
    };
    entries("FLOW_CONF1_MENU", "FLOW_CONFIG1", 5, &Store::Xmtr_DisCoeff);
    entries("FLOW_CONF2_MENU", "FLOW_CONFIG2", 3, &Store::Xmtr_ExpFac);
    entries("FLOW_CONF3_MENU", "FLOW_CONFIG3", 16, &Store::Xmtr_DensCoeff);
    entries("FLOW_CONF4_MENU", "FLOW_CONFIG4", 4, &Store::Xmtr_VisCoeff);

    w(p2, "CONFIG_SOFT_REV", str(&Store::Xmtr_CONFIG_SOFT_REV));
    w(p2, "CONFIG_DATE", str(&Store::Xmtr_CONFIG_DATE));
    w(p2, "CONFIG_WHO", str(&Store::Xmtr_CONFIG_WHO));
    w(p2, "CONFIG_VSTRING32", str(&Store::Xmtr_CONFIG_VSTRING32));
    w("CONF_VSTRING16_MENU", "CONFIG_VSTRING16.ENTRY1", str(&Store::Xmtr_CONFIG_VSTRING16_1));
    w("CONF_VSTRING16_MENU", "CONFIG_VSTRING16.ENTRY2", str(&Store::Xmtr_CONFIG_VSTRING16_2));
    w(p2, "CONFIG_OSTRING32", str(&Store::Xmtr_CONFIG_OSTRING32));
    return list;
}

std::vector<Step> ChooseList(const Store& s) {
    if (s.BusID == "HART") return s.Xmtr_SimpleFlowCalcMode != 0 ? HartBasic() : HartAuto();
    if (s.Xmtr_SimpleFlowCalcMode == 1) return FFBasic();
    if (s.Xmtr_SimpleFlowCalcMode == 0) return FFAuto();
    return {};
}

}  // namespace

void DownloadToFrame(clsExGlobalVars& store) {
    for (const Step& step : ChooseList(store)) {
        if (step.action) {
            step.action(store);
            continue;
        }
        if (store.SDKManager == nullptr) throw SDKError("no frame manager");
        WriteParameter(*store.SDKManager, step.menu, step.parameter, step.value(store));
    }
    store.varsChanged = kFalse;
}

}  // namespace qdf::host
