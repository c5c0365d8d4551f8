// Reference values for the sndl_dippr tests.
//
// kCorrelationChecks: each correlation at two temperatures for 12 compounds, the value printed
// for the correlation (6 significant digits) and an independent value with its source: VDI
// Heat Atlas saturation tables and PPDS equations, the IAPWS 2008 dilute-gas viscosity of water,
// the ideal gas heat capacity polynomials of Poling, Prausnitz and O'Connell.
//
// kGergChecks: gas and supercritical densities from the GERG-2008 reference software (Kunz and
// Wagner 2012), 12 significant digits.
#ifndef TESTS_SNDL_DIPPR_REFERENCE_TABLES_HPP
#define TESTS_SNDL_DIPPR_REFERENCE_TABLES_HPP

#include <cstdint>
#include <ostream>

enum class Quantity { kVp, kLdnMass, kLvs, kVvs, kIcp };

struct CorrelationCheck {
    const char* compound;
    Quantity quantity;
    double T_K;
    double correlation;
    double independent;
    const char* source;
    double deviation;
};

// clang-format off
inline constexpr CorrelationCheck kCorrelationChecks[] = {
    {"METHANE", Quantity::kVp, 111.67, 101358, 101300, "VDI Heat Atlas saturation table (tabulated value)", 0.0006},
    {"METHANE", Quantity::kLdnMass, 111.67, 422.483, 422.36, "VDI Heat Atlas saturation table (tabulated value)", 0.0003},
    {"METHANE", Quantity::kLvs, 111.67, 0.00011673, 0.0001065, "VDI Heat Atlas saturation table (tabulated value)", 0.0961},
    {"METHANE", Quantity::kLvs, 111.67, 0.00011673, 0.000117792, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity (second reference)", -0.0090},
    {"METHANE", Quantity::kVp, 150, 1.03929e+06, 1.04e+06, "VDI Heat Atlas saturation table (tabulated value)", -0.0007},
    {"METHANE", Quantity::kLdnMass, 150, 357.203, 357.9, "VDI Heat Atlas saturation table (tabulated value)", -0.0019},
    {"METHANE", Quantity::kLvs, 150, 5.57931e-05, 5.224e-05, "VDI Heat Atlas saturation table (tabulated value)", 0.0680},
    {"METHANE", Quantity::kLvs, 150, 5.57931e-05, 5.55005e-05, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity (second reference)", 0.0053},
    {"METHANE", Quantity::kVvs, 300, 1.12496e-05, 1.12526e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0003},
    {"METHANE", Quantity::kVvs, 500, 1.69757e-05, 1.69752e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0000},
    {"METHANE", Quantity::kIcp, 300, 35748.4, 35851, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0029},
    {"METHANE", Quantity::kIcp, 600, 52498.9, 52459.4, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0008},
    {"NITROGEN", Quantity::kVp, 77.35, 101303, 101350, "Wagner vapour-pressure equation, McGarry coefficient set", -0.0005},
    {"NITROGEN", Quantity::kLdnMass, 77.35, 807.907, 805.732, "VDI Heat Atlas PPDS saturated-liquid density equation", 0.0027},
    {"NITROGEN", Quantity::kLvs, 77.35, 0.00015688, 0.000149393, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity", 0.0501},
    {"NITROGEN", Quantity::kVp, 110, 1.46716e+06, 1.467e+06, "Wagner vapour-pressure equation, McGarry coefficient set", 0.0001},
    {"NITROGEN", Quantity::kLdnMass, 110, 620.666, 621.3, "VDI Heat Atlas PPDS saturated-liquid density equation", -0.0010},
    {"NITROGEN", Quantity::kLvs, 110, 5.12679e-05, 5.33248e-05, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity", -0.0386},
    {"NITROGEN", Quantity::kVvs, 300, 1.78005e-05, 1.78378e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0021},
    {"NITROGEN", Quantity::kVvs, 500, 2.58819e-05, 2.61481e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0102},
    {"NITROGEN", Quantity::kIcp, 300, 29126.9, 29112, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0005},
    {"NITROGEN", Quantity::kIcp, 600, 30107, 30085.2, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0007},
    {"PROPANE", Quantity::kVp, 200, 20078.4, 20190, "VDI Heat Atlas saturation table (tabulated value)", -0.0055},
    {"PROPANE", Quantity::kLdnMass, 200, 618.114, 615.4, "VDI Heat Atlas saturation table (tabulated value)", 0.0044},
    {"PROPANE", Quantity::kLvs, 200, 0.000285694, 0.000288, "VDI Heat Atlas saturation table (tabulated value)", -0.0080},
    {"PROPANE", Quantity::kVp, 275, 502322, 501800, "VDI Heat Atlas saturation table (tabulated value)", 0.0010},
    {"PROPANE", Quantity::kLdnMass, 275, 525.802, 526.1, "VDI Heat Atlas saturation table (tabulated value)", -0.0006},
    {"PROPANE", Quantity::kLvs, 275, 0.000124547, 0.0001232, "VDI Heat Atlas saturation table (tabulated value)", 0.0109},
    {"PROPANE", Quantity::kVvs, 300, 8.37876e-06, 8.26394e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0139},
    {"PROPANE", Quantity::kVvs, 500, 1.32776e-05, 1.34468e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0126},
    {"PROPANE", Quantity::kIcp, 300, 73853.7, 74119.2, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0036},
    {"PROPANE", Quantity::kIcp, 600, 128445, 128930, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0038},
    {"WATER", Quantity::kVp, 300, 3537.45, 3533.92, "Wagner vapour-pressure equation, McGarry coefficient set", 0.0010},
    {"WATER", Quantity::kLdnMass, 300, 993.998, 996.521, "VDI Heat Atlas PPDS saturated-liquid density equation", -0.0025},
    {"WATER", Quantity::kLvs, 300, 0.000876454, 0.000865116, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity", 0.0131},
    {"WATER", Quantity::kVp, 450, 930082, 932387, "Wagner vapour-pressure equation, McGarry coefficient set", -0.0025},
    {"WATER", Quantity::kLdnMass, 450, 892.367, 891.518, "VDI Heat Atlas PPDS saturated-liquid density equation", 0.0010},
    {"WATER", Quantity::kLvs, 450, 0.000151345, 0.000150576, "VDI Heat Atlas PPDS equation 9 for saturated-liquid viscosity", 0.0051},
    {"WATER", Quantity::kVvs, 400, 1.35878e-05, 1.33545e-05, "IAPWS 2008 dilute-gas viscosity of water", 0.0175},
    {"WATER", Quantity::kVvs, 600, 2.13512e-05, 2.14334e-05, "IAPWS 2008 dilute-gas viscosity of water", -0.0038},
    {"WATER", Quantity::kIcp, 300, 33585.9, 33529, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0017},
    {"WATER", Quantity::kIcp, 600, 36335.7, 36435.9, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0028},
    {"AMMONIA", Quantity::kVp, 239.75, 101337, 101000, "VDI Heat Atlas saturation table (tabulated value)", 0.0033},
    {"AMMONIA", Quantity::kLdnMass, 239.75, 681.744, 682.1, "VDI Heat Atlas saturation table (tabulated value)", -0.0005},
    {"AMMONIA", Quantity::kLvs, 239.75, 0.000255479, 0.0002564, "VDI Heat Atlas saturation table (tabulated value)", -0.0036},
    {"AMMONIA", Quantity::kVp, 330, 2.41291e+06, 2.421e+06, "VDI Heat Atlas saturation table (tabulated value)", -0.0033},
    {"AMMONIA", Quantity::kLdnMass, 330, 550.117, 550.9, "VDI Heat Atlas saturation table (tabulated value)", -0.0014},
    {"AMMONIA", Quantity::kLvs, 330, 9.67288e-05, 9.732e-05, "VDI Heat Atlas saturation table (tabulated value)", -0.0061},
    {"AMMONIA", Quantity::kVvs, 300, 1.01946e-05, 1.01958e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0001},
    {"AMMONIA", Quantity::kVvs, 500, 1.74742e-05, 1.74735e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0000},
    {"AMMONIA", Quantity::kIcp, 300, 35606.3, 35735.7, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0036},
    {"AMMONIA", Quantity::kIcp, 600, 45278.7, 45319.6, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0009},
    {"n-HEXANE", Quantity::kVp, 300, 21949.8, 21870, "VDI Heat Atlas saturation table (tabulated value)", 0.0036},
    {"n-HEXANE", Quantity::kLdnMass, 300, 654.341, 653, "VDI Heat Atlas saturation table (tabulated value)", 0.0021},
    {"n-HEXANE", Quantity::kLvs, 300, 0.000288237, 0.0002948, "VDI Heat Atlas saturation table (tabulated value)", -0.0223},
    {"n-HEXANE", Quantity::kVp, 375, 255914, 258200, "VDI Heat Atlas saturation table (tabulated value)", -0.0089},
    {"n-HEXANE", Quantity::kLdnMass, 375, 579.845, 578.6, "VDI Heat Atlas saturation table (tabulated value)", 0.0022},
    {"n-HEXANE", Quantity::kLvs, 375, 0.000160998, 0.0001556, "VDI Heat Atlas saturation table (tabulated value)", 0.0347},
    {"n-HEXANE", Quantity::kVvs, 300, 6.49679e-06, 6.47825e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0029},
    {"n-HEXANE", Quantity::kVvs, 500, 1.0811e-05, 1.08122e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0001},
    {"n-HEXANE", Quantity::kIcp, 300, 142574, 143718, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0080},
    {"n-HEXANE", Quantity::kIcp, 600, 247842, 248545, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0028},
    {"METHANOL", Quantity::kVp, 337.63, 101107, 101330, "VDI Heat Atlas saturation table (tabulated value)", -0.0022},
    {"METHANOL", Quantity::kLdnMass, 337.63, 749.839, 748.35, "VDI Heat Atlas saturation table (tabulated value)", 0.0020},
    {"METHANOL", Quantity::kLvs, 337.63, 0.000344957, 0.000329, "VDI Heat Atlas saturation table (tabulated value)", 0.0485},
    {"METHANOL", Quantity::kVvs, 300, 9.68018e-06, 9.67641e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0004},
    {"METHANOL", Quantity::kVvs, 500, 1.64954e-05, 1.64838e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0007},
    {"METHANOL", Quantity::kIcp, 300, 44126.5, 44339.6, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0048},
    {"METHANOL", Quantity::kIcp, 600, 67174.8, 67134.9, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0006},
    {"ETHANOL", Quantity::kVp, 320, 25402.7, 25460, "VDI Heat Atlas saturation table (tabulated value)", -0.0022},
    {"ETHANOL", Quantity::kLdnMass, 320, 765.847, 766.38, "VDI Heat Atlas saturation table (tabulated value)", -0.0007},
    {"ETHANOL", Quantity::kLvs, 320, 0.000726413, 0.0007363, "VDI Heat Atlas saturation table (tabulated value)", -0.0134},
    {"ETHANOL", Quantity::kVp, 400, 522543, 524460, "VDI Heat Atlas saturation table (tabulated value)", -0.0037},
    {"ETHANOL", Quantity::kLdnMass, 400, 679.57, 680.64, "VDI Heat Atlas saturation table (tabulated value)", -0.0016},
    {"ETHANOL", Quantity::kLvs, 400, 0.00022602, 0.0002264, "VDI Heat Atlas saturation table (tabulated value)", -0.0017},
    {"ETHANOL", Quantity::kVvs, 300, 8.98669e-06, 8.98769e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0001},
    {"ETHANOL", Quantity::kVvs, 500, 1.44314e-05, 1.4429e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0002},
    {"ETHANOL", Quantity::kIcp, 300, 65406.9, 65657.7, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0038},
    {"ETHANOL", Quantity::kIcp, 600, 108049, 108473, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0039},
    {"BENZENE", Quantity::kVp, 300, 13759.4, 13810, "VDI Heat Atlas saturation table (tabulated value)", -0.0037},
    {"BENZENE", Quantity::kLdnMass, 300, 871.134, 872.2, "VDI Heat Atlas saturation table (tabulated value)", -0.0012},
    {"BENZENE", Quantity::kLvs, 300, 0.000585876, 0.000587, "VDI Heat Atlas saturation table (tabulated value)", -0.0019},
    {"BENZENE", Quantity::kVp, 450, 968948, 971600, "VDI Heat Atlas saturation table (tabulated value)", -0.0027},
    {"BENZENE", Quantity::kLdnMass, 450, 693.445, 694.3, "VDI Heat Atlas saturation table (tabulated value)", -0.0012},
    {"BENZENE", Quantity::kLvs, 450, 0.000136022, 0.000138, "VDI Heat Atlas saturation table (tabulated value)", -0.0143},
    {"BENZENE", Quantity::kVvs, 300, 7.61506e-06, 7.61631e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0002},
    {"BENZENE", Quantity::kVvs, 500, 1.26129e-05, 1.26109e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0002},
    {"BENZENE", Quantity::kIcp, 300, 82634.5, 82673.7, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0005},
    {"BENZENE", Quantity::kIcp, 600, 159459, 161656, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0136},
    {"TOLUENE", Quantity::kVp, 320, 10701.8, 10730, "VDI Heat Atlas saturation table (tabulated value)", -0.0026},
    {"TOLUENE", Quantity::kLdnMass, 320, 843.626, 841.66, "VDI Heat Atlas saturation table (tabulated value)", 0.0023},
    {"TOLUENE", Quantity::kLvs, 320, 0.000439075, 0.0004344, "VDI Heat Atlas saturation table (tabulated value)", 0.0108},
    {"TOLUENE", Quantity::kVp, 383.75, 101097, 101330, "VDI Heat Atlas saturation table (tabulated value)", -0.0023},
    {"TOLUENE", Quantity::kLdnMass, 383.75, 780.231, 779.14, "VDI Heat Atlas saturation table (tabulated value)", 0.0014},
    {"TOLUENE", Quantity::kLvs, 383.75, 0.000242856, 0.0002477, "VDI Heat Atlas saturation table (tabulated value)", -0.0196},
    {"TOLUENE", Quantity::kVvs, 300, 7.02363e-06, 6.9976e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0037},
    {"TOLUENE", Quantity::kVvs, 500, 1.14082e-05, 1.14066e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0001},
    {"TOLUENE", Quantity::kIcp, 300, 105424, 104253, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", 0.0112},
    {"TOLUENE", Quantity::kIcp, 600, 195448, 197429, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0100},
    {"ARGON", Quantity::kVp, 83.81, 68960.2, 68890, "VDI Heat Atlas saturation table (tabulated value)", 0.0010},
    {"ARGON", Quantity::kLdnMass, 83.81, 1417.61, 1416.8, "VDI Heat Atlas saturation table (tabulated value)", 0.0006},
    {"ARGON", Quantity::kLvs, 83.81, 0.000294706, 0.0002902, "VDI Heat Atlas saturation table (tabulated value)", 0.0155},
    {"ARGON", Quantity::kVp, 110, 667144, 665260, "VDI Heat Atlas saturation table (tabulated value)", 0.0028},
    {"ARGON", Quantity::kLdnMass, 110, 1239.76, 1242.8, "VDI Heat Atlas saturation table (tabulated value)", -0.0024},
    {"ARGON", Quantity::kLvs, 110, 0.000144044, 0.0001404, "VDI Heat Atlas saturation table (tabulated value)", 0.0260},
    {"ARGON", Quantity::kVvs, 300, 2.27712e-05, 2.27176e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0024},
    {"ARGON", Quantity::kVvs, 500, 3.39735e-05, 3.38558e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0035},
    {"ARGON", Quantity::kIcp, 300, 20786, 20786.1, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0000},
    {"ARGON", Quantity::kIcp, 600, 20786, 20786.1, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0000},
    {"n-BUTANE", Quantity::kVp, 225, 10589.4, 10570, "VDI Heat Atlas saturation table (tabulated value)", 0.0018},
    {"n-BUTANE", Quantity::kLdnMass, 225, 651.757, 649.9, "VDI Heat Atlas saturation table (tabulated value)", 0.0029},
    {"n-BUTANE", Quantity::kLvs, 225, 0.000340788, 0.0003498, "VDI Heat Atlas saturation table (tabulated value)", -0.0258},
    {"n-BUTANE", Quantity::kVp, 325, 520835, 520100, "VDI Heat Atlas saturation table (tabulated value)", 0.0014},
    {"n-BUTANE", Quantity::kLdnMass, 325, 539.486, 539.9, "VDI Heat Atlas saturation table (tabulated value)", -0.0008},
    {"n-BUTANE", Quantity::kLvs, 325, 0.000125061, 0.0001233, "VDI Heat Atlas saturation table (tabulated value)", 0.0143},
    {"n-BUTANE", Quantity::kVvs, 300, 7.58316e-06, 7.59846e-06, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", -0.0020},
    {"n-BUTANE", Quantity::kVvs, 500, 1.2295e-05, 1.22523e-05, "VDI Heat Atlas PPDS low-pressure gas viscosity polynomial", 0.0035},
    {"n-BUTANE", Quantity::kIcp, 300, 98839.1, 99272.9, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0044},
    {"n-BUTANE", Quantity::kIcp, 600, 168962, 169599, "Poling-Prausnitz-O Connell ideal-gas Cp polynomial (Appendix A)", -0.0038},
};
// clang-format on

struct GergCheck {
    const char* component;
    int32_t id;
    double T_K;
    double P_Pa;
    double rho_mol_l;
    double Z;
};

// clang-format off
inline constexpr GergCheck kGergChecks[] = {
    {"methane", 1, 170, 1000000, 0.795921861487, 0.888885803184},
    {"methane", 1, 288.15, 5000000, 2.30482977124, 0.905477890224},
    {"methane", 1, 350, 20000000, 7.44190428454, 0.923513389137},
    {"nitrogen", 905, 100, 500000, 0.673168107507, 0.893329749204},
    {"nitrogen", 905, 293.15, 1000000, 0.411166583614, 0.997832430894},
    {"nitrogen", 905, 300, 20000000, 7.58707197615, 1.05681717276},
    {"carbon dioxide", 909, 273.15, 2000000, 1.03624868046, 0.849826217572},
    {"carbon dioxide", 909, 300, 101325, 0.0408239473414, 0.995051794944},
    {"carbon dioxide", 909, 350, 10000000, 5.19899149885, 0.660964559086},
    {"ethane", 2, 250, 500000, 0.258052903139, 0.932151646949},
    {"ethane", 2, 300, 2000000, 0.961531058566, 0.833893807581},
    {"ethane", 2, 400, 10000000, 4.19839975982, 0.716178938469},
    {"propane", 3, 273.15, 200000, 0.0920147316857, 0.957054680752},
    {"propane", 3, 350, 2000000, 0.893060034799, 0.769567328023},
    {"propane", 3, 400, 5000000, 2.54356816238, 0.591060528225},
    {"isobutane", 4, 300, 100000, 0.0411424187969, 0.974438084807},
    {"isobutane", 4, 350, 800000, 0.318831203167, 0.862236591547},
    {"isobutane", 4, 450, 4000000, 1.59756501753, 0.669197423776},
    {"n-butane", 5, 300, 100000, 0.0412763773658, 0.971275638399},
    {"n-butane", 5, 380, 1000000, 0.370956336519, 0.853215888729},
    {"n-butane", 5, 450, 3000000, 1.09851992153, 0.729904646988},
    {"isopentane", 8, 320, 100000, 0.0389440421646, 0.965104453767},
    {"isopentane", 8, 400, 600000, 0.201780734619, 0.894081039682},
    {"isopentane", 8, 500, 3000000, 0.994320577966, 0.725755185977},
    {"n-pentane", 7, 330, 100000, 0.0377496192027, 0.96547005876},
    {"n-pentane", 7, 420, 800000, 0.264435197658, 0.866336794838},
    {"n-pentane", 7, 500, 3000000, 1.04003301276, 0.693856163342},
    {"n-hexane", 11, 373.15, 100000, 0.0333893349702, 0.965326236119},
    {"n-hexane", 11, 450, 800000, 0.254428280477, 0.840383303335},
    {"n-hexane", 11, 550, 3000000, 0.956253800075, 0.686042018557},
    {"n-heptane", 17, 400, 100000, 0.0312962287621, 0.960756487983},
    {"n-heptane", 17, 480, 600000, 0.173185462739, 0.868088301321},
    {"n-heptane", 17, 580, 2000000, 0.538573167522, 0.770056541625},
    {"n-octane", 27, 450, 100000, 0.0276654705761, 0.966083688244},
    {"n-octane", 27, 500, 400000, 0.106569758251, 0.902861909823},
    {"n-octane", 27, 600, 2000000, 0.55486518809, 0.722531177615},
    {"n-nonane", 46, 450, 50000, 0.0136654505041, 0.977909943152},
    {"n-nonane", 46, 530, 400000, 0.101217685558, 0.896794723043},
    {"n-nonane", 46, 620, 1500000, 0.379224807882, 0.767305223053},
    {"n-decane", 56, 480, 50000, 0.0128216690454, 0.977123659634},
    {"n-decane", 56, 550, 300000, 0.0717502322595, 0.914324966759},
    {"n-decane", 56, 650, 1500000, 0.366918401567, 0.756438690981},
    {"hydrogen", 902, 30, 300000, 1.34252089441, 0.89586850999},
    {"hydrogen", 902, 273.15, 10000000, 4.13963756524, 1.06365748535},
    {"hydrogen", 902, 300, 50000000, 15.2108284804, 1.31783550871},
    {"oxygen", 901, 120, 500000, 0.541024925886, 0.92626831636},
    {"oxygen", 901, 293.15, 1000000, 0.413186275397, 0.992954935968},
    {"oxygen", 901, 300, 15000000, 6.35830930521, 0.945787736623},
    {"carbon monoxide", 908, 110, 400000, 0.470174135066, 0.930194777253},
    {"carbon monoxide", 908, 293.15, 1000000, 0.411824710501, 0.99623781956},
    {"carbon monoxide", 908, 350, 20000000, 6.40820634525, 1.07248391783},
    {"water", 1921, 373.15, 50000, 0.0162581673517, 0.991243365751},
    {"water", 1921, 473.15, 1000000, 0.270542585867, 0.939573682636},
    {"water", 1921, 623.15, 10000000, 2.47257268877, 0.780591212081},
    {"hydrogen sulfide", 1922, 273.15, 500000, 0.232234524098, 0.947997826766},
    {"hydrogen sulfide", 1922, 300, 1000000, 0.435388137183, 0.920804596013},
    {"hydrogen sulfide", 1922, 400, 5000000, 1.80466287545, 0.833065700016},
    {"helium", 913, 50, 2000000, 4.6061542691, 1.04444803455},
    {"helium", 913, 293.15, 1000000, 0.408270610937, 1.0049103233},
    {"helium", 913, 350, 30000000, 9.24806746115, 1.11472449941},
    {"argon", 914, 120, 500000, 0.538606773288, 0.930426931229},
    {"argon", 914, 293.15, 1000000, 0.413076128566, 0.993219707597},
    {"argon", 914, 300, 20000000, 8.41023137613, 0.953380186199},
};
// clang-format on

// Named rows in test output instead of raw bytes.
inline void PrintTo(const CorrelationCheck& c, std::ostream* os) {
    *os << c.compound << " at " << c.T_K << " K";
}
inline void PrintTo(const GergCheck& c, std::ostream* os) {
    *os << c.component << " at " << c.T_K << " K, " << c.P_Pa << " Pa";
}

#endif
