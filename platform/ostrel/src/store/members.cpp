#include "store/members.h"

#include <ostrel/records.h>
#include <ostrel/store.h>

#include <array>
#include <cstddef>
#include <span>

namespace {

// In the order of the records' member arrays. A name differs here and there from the enumerator of its member.
constexpr std::array<const char*, 33> statNames = {"AV", "MN", "MX", "RN", "SD", "C0", "IV", "FV", "DL", "E0", "CI",
                                                   "I0", "I5", "I9", "ME", "MD", "RM", "ST", "EN", "TN", "TX", "C1",
                                                   "IN", "IT", "RS", "CV", "E1", "RA", "NM", "SE", "RC", "QF", "NR"};

constexpr std::array<const char*, 49> compositionNames = {
    "H2", "CO", "O2", "WA", "C2",  "N2",  "NX",  "AR",  "AM",  "ME",  "EE",  "PR",  "NB",  "IB",  "NP",  "IP", "HX",
    "HE", "OC", "NN", "HS", "H2S", "MTM", "ETM", "DMS", "IPM", "TBM", "MES", "NPM", "SBM", "DES", "THT", "NM", "OM",
    "HM", "CM", "NA", "OA", "HA",  "CA",  "NF",  "OF",  "HF",  "CF",  "FA",  "OL",  "SA",  "UT",  "MM"};

constexpr std::array<const char*, 47> propertyNames = {
    "AT", "AP", "CP", "CV", "GM", "TH", "GC", "ER", "SR", "HV", "HU", "ET", "VS", "RE", "DD", "ID",
    "IR", "CM", "DW", "AH", "VP", "WD", "EA", "LM", "LV", "HM", "HH", "WL", "WH", "MR", "ML", "MT",
    "MO", "KE", "KT", "KP", "HC", "RD", "RW", "IE", "OT", "CU", "CI", "DS", "LH", "DE", "UT"};

constexpr std::array<const char*, 57> emissionNames = {"FUEL_MF_MEA",    "AIR_MF_MEA",    "EXH_MF_MEA",
                                                       "EXH_CD_CO2_MEA", "EXH_CD_O2_MEA", "EXH_CD_CO_MEA",
                                                       "EXH_CD_NOX_MEA", "EXH_CW_HC_MEA", "EXH_CW_NOX_MEA",
                                                       "FUEL_MW",        "AIR_MF_DRY",    "CD_CO2_TH",
                                                       "CD_O2_TH",       "DRY_TO_WET_TH", "CW_CO2_G1",
                                                       "CW_CO_G1",       "CW_NOX_G1",     "CW_HC_G1",
                                                       "MF_CO2",         "MF_CO",         "MF_NOX",
                                                       "MF_HC",          "MW_HC",         "CBE",
                                                       "CBE_CO2",        "AFDE_O2",       "AFDE_CO2",
                                                       "BSCO2_G1",       "BSCO_G1",       "BSNOX_G1",
                                                       "BSHC_G1",        "NOX_COR_G1",    "BSNOX_COR_G1",
                                                       "FSCO2_G1",       "FSCO_G1",       "FSNOX_G1",
                                                       "FSHC_G1",        "FA_WET",        "DRY_WET_I1",
                                                       "EXH_CW_CO2_I1",  "EXH_CW_CO_I1",  "EXH_CW_NOX_I1",
                                                       "EXH_CW_HC_I1",   "EXH_MF_CO2_I1", "EXH_MF_CO_I1",
                                                       "EXH_MF_NOX_I1",  "EXH_MF_HC_I1",  "BSCO2_I1",
                                                       "BSCO_I1",        "BSNOX_I1",      "BSHC_I1",
                                                       "NOX_COR_I1",     "BSNOX_COR_I1",  "PSEUDO_PHI",
                                                       "CO2_ERR",        "O2_ERR",        "UT"};

static_assert(statNames.size() == NUM_MEMBER_TYPES && compositionNames.size() == NUM_COMPOSITION_TYPES);
static_assert(propertyNames.size() == NUM_PROPERTY_TYPES && emissionNames.size() == NUM_EMISSION_TYPES);

std::span<const char* const> namesOf(int kind) {
    switch (kind) {
        case STAT_TYPE:
            return statNames;
        case COMP_TYPE:
            return compositionNames;
        case PROP_TYPE:
            return propertyNames;
        case EMIS_TYPE:
            return emissionNames;
        default:
            return {};
    }
}

}  // namespace

int memberCount(int kind) {
    return static_cast<int>(namesOf(kind).size());
}

int memberNumber(int kind, std::string_view name) {
    const auto names = namesOf(kind);
    for (size_t i = 0; i < names.size(); ++i)
        if (name == names[i])
            return static_cast<int>(i);
    return -1;
}

const char* ostrel_member_name(SM_VARI_TYPE kind, int member) {
    const auto names = namesOf(kind);
    return member >= 0 && static_cast<size_t>(member) < names.size() ? names[static_cast<size_t>(member)] : nullptr;
}
