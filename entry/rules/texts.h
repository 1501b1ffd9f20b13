#pragma once
// The Swedish texts that the rules of price and holdings entry put together.

#include <array>
#include <string_view>

namespace texts {

inline constexpr std::string_view LineBreak = "\r\n";
inline constexpr std::string_view Deleted = "Raderades : ";
inline constexpr std::string_view AfterDeletedNumber = "       ";
inline constexpr std::string_view AfterDeletedDate = "  ";
inline constexpr std::string_view AtPrice = "  a' ";
inline constexpr std::string_view AfterDeletedPrice = "  kr     ";
inline constexpr std::string_view AfterDeletedValue = "  kr";

// Of a price while it is typed: "175,10 kr = 82 %, +0,1 % sedan 174,98 (20 nov)".
inline constexpr std::string_view IsThatRight = "Stämmer det? ";
inline constexpr std::string_view NoPrice = "Det är ingen kurs";
inline constexpr std::string_view NoPercentage = " kr går inte att räkna om till procent";
inline constexpr std::string_view PriceIs = " kr = ";
inline constexpr std::string_view NextChange = ", ";
inline constexpr std::string_view Since = " sedan ";
inline constexpr std::string_view BeforeDay = " (";
inline constexpr std::string_view AfterDay = ")";
inline constexpr std::string_view PercentUnit = " %";
inline constexpr std::string_view NoChange = "0,0 %";
inline constexpr std::array<std::string_view, 12> ShortMonths = {
    "jan", "feb", "mars", "apr", "maj", "juni", "juli", "aug", "sep", "okt", "nov", "dec"};

// The day's round.
inline constexpr std::string_view SinceStart = " sedan start";
inline constexpr std::string_view DoneOf = " av ";
inline constexpr std::string_view DoneEnd = " klara";
inline constexpr std::string_view AlsoToday = ", idag";
inline constexpr std::string_view AreMissing = " saknas";

// A pasted column of prices: what becomes of each line, and of them all.
inline constexpr std::string_view NotStoredBecause = "Sparas inte: ";
inline constexpr std::string_view WhyNoPrice = "ingen kurs";
inline constexpr std::string_view WhyNoPercentage = "går inte att räkna om till procent";
inline constexpr std::string_view WhyTooMuch = "mer än 1000 % ökning";
inline constexpr std::string_view WhyTwice = "fonden står redan ovan";
inline constexpr std::string_view WhyNoFund = "ingen fond heter så";
inline constexpr std::string_view WhyNoFundLeft = "ingen fond är kvar";
inline constexpr std::string_view AsksFirst = "mer än 200 % ökning";
inline constexpr std::string_view EnterStores = "Enter sparar ";
inline constexpr std::string_view OnePrice = " kurs. ";
inline constexpr std::string_view MorePrices = " kurser. ";
inline constexpr std::string_view OneRefused = " rad sparas inte. ";
inline constexpr std::string_view MoreRefused = " rader sparas inte. ";
inline constexpr std::string_view EscGivesUp = "Esc ångrar.";

// The headings by which the columns of a file of prices are known: small letters, without blanks
// and units.
inline constexpr std::array<std::string_view, 5> DayHeadings = {"datum", "dag", "kursdatum", "date",
                                                                "day"};
inline constexpr std::array<std::string_view, 1> KontoIdHeadings = {"nr"};
inline constexpr std::array<std::string_view, 4> FondNrHeadings = {"fondnr", "fondnummer", "ppmnr",
                                                                   "nummer"};
inline constexpr std::array<std::string_view, 6> FondHeadings = {"fond", "fondnamn", "fondensnamn",
                                                                 "namn", "name",     "fund"};
inline constexpr std::array<std::string_view, 9> PriceHeadings = {
    "kurs", "kronor", "kr", "pris", "price", "senaste", "nav", "andelskurs", "slutkurs"};

// What becomes of the lines of a file of prices.
inline constexpr std::string_view WhyNoDay = "inget datum med helt årtal";
inline constexpr std::string_view WhyNotYet = "dagen har inte varit än";
inline constexpr std::string_view WhyTwiceThatDay = "fonden har en annan kurs den dagen ovan";
inline constexpr std::string_view WhyTooLong = "raden har fler rutor än rubrikerna";
inline constexpr std::string_view IsThereAlready = "Finns redan";
inline constexpr std::string_view NothingOnTheLine = "Ingen kurs på raden";
inline constexpr std::string_view OneThere = " är redan lagrad. ";
inline constexpr std::string_view MoreThere = " är redan lagrade. ";
inline constexpr std::string_view OneWithout = " rad har ingen kurs. ";
inline constexpr std::string_view MoreWithout = " rader har ingen kurs. ";
inline constexpr std::string_view NothingToStore = "Inget att spara. ";
inline constexpr std::string_view EscLeaves = "Esc lämnar sidan.";

}  // namespace texts
