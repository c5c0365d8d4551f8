#include "ModDeviceParams.h"

#include <array>
#include <memory>

namespace qdf::host {

using qdf::sdk::kVariableKindParameter;

void WriteParameter(ISDKManager& manager, const std::string& menu, const std::string& parameter,
                    const qdf::Value& value) {
    ISDKVariable* menuVar = manager.FindVariable(kVariableKindParameter, menu);
    ISDKVariable* paramVar = manager.FindVariable(kVariableKindParameter, parameter);
    if (menuVar == nullptr || paramVar == nullptr) return;  // a device revision without it
    manager.GetParameterWriter()->OpenMenu(menuVar, nullptr);
    manager.GetParameterWriter()->BeginWrite(menuVar, paramVar, nullptr);
    manager.GetParameterWriter()->WriteValue(menuVar, paramVar, value, nullptr);
    manager.GetParameterWriter()->EndWrite(menuVar, paramVar, nullptr);
    manager.GetParameterWriter()->CloseMenu(menuVar, nullptr);
}

namespace {

enum class TempScale { None, Celsius, Fahrenheit, Kelvin };

double ToScale(double kelvin, TempScale scale) {
    switch (scale) {
        case TempScale::Celsius:
            return kelvin - 273.15;
        case TempScale::Fahrenheit:
            return (kelvin - 273.15) * 9.0 / 5.0 + 32.0;
        case TempScale::Kelvin:
            return kelvin;
        case TempScale::None:
            break;
    }
    return 0.0;
}

TempScale HartScale(std::int32_t code) {
    switch (code) {
        case kHartDegC:
            return TempScale::Celsius;
        case kHartDegF:
            return TempScale::Fahrenheit;
        case kHartKelvin:
            return TempScale::Kelvin;
        default:
            return TempScale::None;
    }
}

TempScale FFScale(std::int32_t code) {
    switch (code) {
        case kFFDegC:
            return TempScale::Celsius;
        case kFFDegF:
            return TempScale::Fahrenheit;
        case kFFKelvin:
            return TempScale::Kelvin;
        default:
            return TempScale::None;
    }
}

// One HART pressure unit with the FF code written for it.
struct PressUnitPair {
    std::int32_t hart;
    std::int32_t ff;
};
constexpr std::array<PressUnitPair, 19> kPressWriteBack{{
    {1, 1148},   {2, 1156},   {3, 1154},   {4, 1151},   {5, 1158},   {6, 1141},  {7, 1137},
    {8, 1138},   {9, 1144},   {10, 1145},  {11, 1130},  {12, 1133},  {13, 1139}, {14, 1140},
    {237, 1132}, {238, 1146}, {239, 1149}, {240, 1152}, {241, 1136},
}};

// How the reference pressure follows an FF unit that the HART list has no scale for.
enum class Rescale { None, Times1000, Per1000, PerMillion };

// FF pressure codes, by range, folded onto HART codes (GPa onto MPa, mPa and uPa onto Pa).
struct FFPressRange {
    std::int32_t first;
    std::int32_t last;
    std::int32_t hart;
    Rescale rescale;
};
constexpr FFPressRange kPressFromFF[] = {
    {1130, 1130, 11, Rescale::None},       {1541, 1542, 11, Rescale::None},
    {1131, 1131, 237, Rescale::Times1000}, {1543, 1544, 237, Rescale::Times1000},
    {1132, 1132, 237, Rescale::None},      {1545, 1546, 237, Rescale::None},
    {1133, 1133, 12, Rescale::None},       {1547, 1548, 12, Rescale::None},
    {1134, 1134, 11, Rescale::Per1000},    {1549, 1550, 11, Rescale::Per1000},
    {1135, 1135, 11, Rescale::PerMillion}, {1551, 1552, 11, Rescale::PerMillion},
    {1136, 1136, 241, Rescale::None},      {1553, 1554, 241, Rescale::None},
    {1137, 1137, 7, Rescale::None},        {1590, 1590, 7, Rescale::None},
    {1597, 1597, 7, Rescale::None},        {1138, 1138, 8, Rescale::None},
    {1591, 1591, 8, Rescale::None},        {1139, 1139, 13, Rescale::None},
    {1140, 1140, 14, Rescale::None},       {1141, 1143, 6, Rescale::None},
    {1144, 1144, 9, Rescale::None},        {1555, 1556, 9, Rescale::None},
    {1145, 1145, 10, Rescale::None},       {1557, 1558, 10, Rescale::None},
    {1146, 1147, 238, Rescale::None},      {1559, 1562, 238, Rescale::None},
    {1148, 1148, 1, Rescale::None},        {1563, 1564, 1, Rescale::None},
    {1149, 1150, 239, Rescale::None},      {1565, 1568, 239, Rescale::None},
    {1151, 1151, 4, Rescale::None},        {1569, 1570, 4, Rescale::None},
    {1152, 1153, 240, Rescale::None},      {1571, 1574, 240, Rescale::None},
    {1154, 1154, 3, Rescale::None},        {1575, 1576, 3, Rescale::None},
    {1155, 1156, 2, Rescale::None},        {1577, 1580, 2, Rescale::None},
    {1157, 1158, 5, Rescale::None},        {1581, 1584, 5, Rescale::None},
};

}  // namespace

double ConvertTemperature(double kelvin, std::int32_t hartUnitCode) {
    return ToScale(kelvin, HartScale(hartUnitCode));
}

double ConvertTemperatureFF(double kelvin, std::int32_t ffUnitCode) {
    return ToScale(kelvin, FFScale(ffUnitCode));
}

std::int32_t HartTempUnitFromFF(std::int32_t ffUnitCode) {
    switch (ffUnitCode) {
        case kFFDegC:
            return kHartDegC;
        case kFFDegF:
            return kHartDegF;
        case kFFKelvin:
            return kHartKelvin;
        default:
            return 0;
    }
}

std::int32_t FFTempUnitFromHart(std::int32_t hartUnitCode) {
    switch (hartUnitCode) {
        case kHartDegC:
            return kFFDegC;
        case kHartDegF:
            return kFFDegF;
        case kHartKelvin:
            return kFFKelvin;
        default:
            return 0;
    }
}

HartPressure HartPressUnitFromFF(std::int32_t ffUnitCode, double refStaticPress) {
    for (const auto& r : kPressFromFF) {
        if (ffUnitCode >= r.first && ffUnitCode <= r.last) {
            switch (r.rescale) {
                case Rescale::Times1000:
                    return {r.hart, refStaticPress * 1000.0};
                case Rescale::Per1000:
                    return {r.hart, refStaticPress / 1000.0};
                case Rescale::PerMillion:
                    return {r.hart, refStaticPress / 1000000.0};
                case Rescale::None:
                    break;
            }
            return {r.hart, refStaticPress};
        }
    }
    return {0, refStaticPress};
}

std::int32_t FFPressUnitFromHart(std::int32_t hartUnitCode) {
    for (const auto& p : kPressWriteBack) {
        if (p.hart == hartUnitCode) return p.ff;
    }
    return 0;
}

}  // namespace qdf::host
