#include "samples/samplefile.h"

namespace {

// What a fund follows: world, Sweden, Asia, interest. Then what is its own, a year.
constexpr FundCharacter kWorldFund{{0.95, 0, 0.05, 0}, 0.03, 0.005};
constexpr FundCharacter kWorldIndex{{1.0, 0, 0, 0}, 0.01, 0};
constexpr FundCharacter kSwedishFund{{0.1, 0.9, 0, 0}, 0.04, 0.01};
constexpr FundCharacter kSmallCompanies{{0, 1.1, 0, 0}, 0.09, -0.01};
constexpr FundCharacter kInterestFund{{0, 0, 0, 1.0}, 0.004, 0};
constexpr FundCharacter kTechnology{{1.25, 0, 0.1, 0}, 0.09, 0.03};
constexpr FundCharacter kNordicFund{{0.35, 0.6, 0, 0}, 0.05, 0};
constexpr FundCharacter kMedicine{{0.65, 0.1, 0, 0}, 0.1, 0.02};
constexpr FundCharacter kEmergingFund{{0.4, 0, 0.6, 0}, 0.07, -0.01};
constexpr FundCharacter kProperty{{0.1, 0.75, 0, 0.6}, 0.11, -0.03};
constexpr FundCharacter kOneShare{{0.1, 0.8, 0, 0}, 0.24, 0.02};
constexpr FundCharacter kMixedAccount{{0.45, 0.2, 0, 0.35}, 0.015, 0};
constexpr FundCharacter kChinaFund{{0.1, 0, 1.1, 0}, 0.09, 0.01};
constexpr FundCharacter kChinaSmallCompanies{{0, 0, 1.25, 0}, 0.15, 0};
constexpr FundCharacter kAsiaFund{{0.25, 0, 0.75, 0}, 0.04, 0.01};
constexpr FundCharacter kIndiaFund{{0.3, 0, 0.5, 0}, 0.13, 0.05};
constexpr FundCharacter kFarEast{{0.5, 0, 0.5, 0}, 0.06, 0};
constexpr FundCharacter kConsumption{{0.3, 0, 0.6, 0}, 0.08, 0};

}  // namespace

Sample VimmelsSample() {
    return {
        .seed = 20001231,
        .accounts = {{"PPM Konto", "541399-0000", "0000-00 117"},
                     {"Barnspar Elsa", "201399-0000", "0000-00 340"},
                     {"Fritt sparande", "541399-0000", ""},
                     {"Tjänstepension", "541399-0000", "0000-00 902"}},
        .holdings = {
            {"Lingonmo Sverige", "318 402", "PPM Konto", 182.4, 241.6137, 2180, kSwedishFund},
            {"Havsholma Global", "476 911", "PPM Konto", 96.35, 602.0418, 2180, kWorldFund},
            {"Tranhult Småbolag", "250 738", "PPM Konto", 311.9, 88.4925, 1820, kSmallCompanies},
            {"Rönnarp Räntefond", "604 155", "PPM Konto", 112.87, 310.0074, 1820, kInterestFund},
            {"Måsskär Teknik", "739 280", "PPM Konto", 141.22, 164.3306, 1090, kTechnology, true,
             true},
            {"Blåbärskulla Norden", "187 466", "Barnspar Elsa", 204.15, 61.2208, 1460, kNordicFund},
            {"Solgläntan Världsindex", "522 903", "Barnspar Elsa", 158.6, 94.5776, 1460,
             kWorldIndex, true},
            {"Granvassa Läkemedel", "845 017", "Fritt sparande", 427.3, 46.8002, 1205, kMedicine,
             true},
            {"Åsnäset Tillväxtländer", "366 529", "Fritt sparande", 88.14, 283.6407, 985,
             kEmergingFund},
            {"Kvistån Fastighet", "913 674", "Fritt sparande", 73.5, 340.1361, 735, kProperty,
             true},
            {"Bruksdammen B", "100 001", "Fritt sparande", 54.25, 400, 820, kOneShare, true},
            {"Hela tjänstepensionen", "999 999", "Tjänstepension", 218450, 1, 1640,
             kMixedAccount}}};
}

Sample RuskenSample() {
    return {
        .seed = 8080888,
        .accounts = {{"PPM Konto", "631399-0000", "0000-00 228"},
                     {"Kinaresan", "631399-0000", "0000-00 615"},
                     {"Gamla kontot", "", ""}},
        .holdings = {
            {"Drakholm Kina", "441 806", "PPM Konto", 64.72, 512.3609, 2010, kChinaFund},
            {"Jadeberg Asien", "283 190", "PPM Konto", 133.08, 270.5139, 2010, kAsiaFund, true,
             true},
            {"Bambulund Indien", "690 347", "PPM Konto", 215.6, 111.3172, 1330, kIndiaFund},
            {"Rönnarp Räntefond", "604 155", "PPM Konto", 114.02, 219.2598, 1330, kInterestFund},
            {"Lyktan Kina Småbolag", "557 928", "Kinaresan", 41.35, 483.6759, 1100,
             kChinaSmallCompanies},
            {"Risfältet Tillväxt", "812 073", "Kinaresan", 76.9, 234.0702, 1100, kEmergingFund,
             true},
            {"Pagoden Fjärran Östern", "374 651", "Kinaresan", 189.44, 79.1807, 910, kFarEast,
             true},
            {"Siden & Te Konsument", "926 415", "Kinaresan", 102.2, 146.7710, 760, kConsumption},
            {"Hela gamla kontot", "999 999", "Gamla kontot", 96300, 1, 1500, kMixedAccount, true}}};
}
