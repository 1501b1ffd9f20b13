// What a file asks of values: required ones, empty texts, rules, default values.

#include "jet/catalog/catalog.h"
#include "jet/catalog/properties.h"
#include "jet/database.h"
#include "jet/query/expression.h"
#include "jet/table/table.h"
#include "ledger.h"
#include "memoryfile.h"

#include <chrono>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <map>

namespace jet::test {
namespace {

using namespace detail;
using testing::HasSubstr;

/// One property: its name and the bytes of its value, with their type.
struct Property {
    std::string name;
    std::uint8_t type = 0;
    Bytes value;
};

Property Flag(std::string name, bool value) {
    return {std::move(name), 1, {static_cast<std::uint8_t>(value ? 0xFF : 0)}};
}
Property Text(std::string name, const std::string& value) {
    return {std::move(name), 12, EncodeText(TextForm{}, value)};
}

/// By column; "" is the table itself.
using Properties = std::map<std::string, std::vector<Property>>;

void Append(Bytes& to, std::uint64_t number, std::size_t size) {
    to.resize(to.size() + size);
    PutLittleEndian(ByteSpan(to).last(size), 0, number, size);
}
void AppendSized(Bytes& to, const Bytes& bytes) {
    Append(to, bytes.size(), 2);
    to.insert(to.end(), bytes.begin(), bytes.end());
}
void AppendChunk(Bytes& to, std::uint16_t kind, const Bytes& content) {
    Append(to, content.size() + 6, 4);
    Append(to, kind, 2);
    to.insert(to.end(), content.begin(), content.end());
}

/// As the program that is made for such files writes them.
Bytes Stored(const Properties& properties) {
    Bytes bytes{'M', 'R', '2', 0}, names;
    std::vector<std::string> known;
    for (const auto& [owner, list] : properties) {
        for (const Property& property : list) {
            known.push_back(property.name);
            AppendSized(names, EncodeText(TextForm{}, property.name));
        }
    }
    AppendChunk(bytes, 0x80, names);
    std::size_t next = 0;
    for (const auto& [owner, list] : properties) {
        Bytes chunk, name = EncodeText(TextForm{}, owner);
        Append(chunk, name.size() + 6, 4);
        AppendSized(chunk, name);
        for (const Property& property : list) {
            Append(chunk, property.value.size() + 8, 2);
            Append(chunk, 0, 1);
            Append(chunk, property.type, 1);
            Append(chunk, next++, 2);
            AppendSized(chunk, property.value);
        }
        AppendChunk(bytes, owner.empty() ? 0 : 1, chunk);
    }
    return bytes;
}

class RowRulesOfAFile : public testing::Test {
  protected:
    void SetUp() override { Database::Create(path_, LedgerTables()); }

    void Give(const Properties& properties) {
        const auto file = PageFile::Open(path_);
        TableStore objects(*file, kSystemObjectsPage);
        std::optional<RowPointer> entry;
        objects.Scan([&](RowPointer where, const RowView& row) {
            const auto name = DecodeColumn(*file, *objects.Def().FindColumn("Name"), row);
            if (name.Text() == "Innehav") entry = where;
        });
        std::vector<std::optional<Value>> values(objects.Def().columns.size());
        values[objects.Def().PositionOf("LvProp").value()] = Value(Stored(properties));
        objects.Update(entry.value(), values);
        file->SaveAs(path_);
        database_ = Database::Open(path_);
        rows_ = database_->OpenRecordSet("Innehav");
    }
    /// Stores a new row in which one field is set.
    ErrorNumber Add(std::string_view column, Value value) {
        rows_->AddNew();
        rows_->Set(column, std::move(value));
        return FailureOf([&] { rows_->Update(); });
    }
    ErrorNumber Change(std::string_view column, Value value) {
        rows_->Edit();
        rows_->Set(column, std::move(value));
        return FailureOf([&] { rows_->Update(); });
    }

    ScratchFolder folder_;
    std::filesystem::path path_ = folder_ / "file.mdb";
    std::shared_ptr<Database> database_;
    std::shared_ptr<RecordSet> rows_;
};

TEST_F(RowRulesOfAFile, AreTold) {
    Give({{"", {Text("ValidationRule", "[Kurs] > 0"), Text("ValidationText", "Fel kurs")}},
          {"Namn", {Flag("Required", true), Flag("AllowZeroLength", false)}},
          {"Kurs", {Text("DefaultValue", "1"), Text("ValidationRule", ">0")}}});
    const TableRules rules = database_->Rules("Innehav");
    EXPECT_EQ(rules.validationRule, "[Kurs] > 0");
    EXPECT_EQ(rules.validationText, "Fel kurs");
    ASSERT_EQ(rules.columns.size(), 7U);
    EXPECT_EQ(rules.columns[1], (ColumnRules{true, false, "", "", ""}));
    EXPECT_EQ(rules.columns[2], (ColumnRules{false, true, "1", ">0", ""}));
    EXPECT_EQ(database_->Rules("Punkter").columns, std::vector<ColumnRules>(4));
}

TEST_F(RowRulesOfAFile, ARequiredFieldMustHaveAValue) {
    Give({{"Namn", {Flag("Required", true)}}});
    EXPECT_EQ(Add("Kurs", 1), ErrorNumber::RequiredField);
    EXPECT_EQ(Add("Namn", ""), ErrorNumber::None);
    EXPECT_EQ(Change("Namn", Value()), ErrorNumber::RequiredField);
    EXPECT_EQ(Change("Kurs", 2), ErrorNumber::None);
    EXPECT_EQ(rows_->RecordCount(), 1);
}

TEST_F(RowRulesOfAFile, AnEmptyTextIsRefusedWhereNoneIsAllowed) {
    Give({{"Namn", {Flag("AllowZeroLength", false)}}, {"Text", {Flag("AllowZeroLength", false)}}});
    EXPECT_EQ(Add("Namn", ""), ErrorNumber::ZeroLength);
    EXPECT_EQ(Add("Text", ""), ErrorNumber::ZeroLength);
    EXPECT_EQ(Add("Namn", Value()), ErrorNumber::None);
    EXPECT_EQ(Add("Namn", " "), ErrorNumber::None);
    EXPECT_FALSE(rows_->AllowsEmptyText(1));
    EXPECT_TRUE(database_->OpenRecordSet("Punkter")->AllowsEmptyText(0));
}

TEST_F(RowRulesOfAFile, ANewRowBeginsWithDefaultValues) {
    Give({{"Namn", {Text("DefaultValue", "\"Åsas \"\"konto\"\"\"")}},
          {"Kurs", {Text("DefaultValue", "=12.5")}},
          {"Andel%", {Text("DefaultValue", "-3")}},
          {"Dag", {Text("DefaultValue", "#12/31/2000#")}},
          {"Aktiv", {Text("DefaultValue", "Yes")}},
          {"Text", {Text("DefaultValue", "DLookUp(\"a\",\"b\")")}}});
    rows_->AddNew();
    EXPECT_EQ(rows_->Field("Namn").Text(), "Åsas \"konto\"");
    rows_->Set("Andel%", Value());  // what is given goes before the default value
    rows_->Update();
    EXPECT_EQ(rows_->Field("Namn").Text(), "Åsas \"konto\"");
    EXPECT_EQ(rows_->Field("Kurs"), Value(12.5F));
    EXPECT_TRUE(rows_->Field("Andel%").IsNull());
    EXPECT_EQ(rows_->Field("Dag").Text(), "2000-12-31");
    EXPECT_EQ(rows_->Field("Aktiv"), Value(true));
    EXPECT_TRUE(rows_->Field("Text").IsNull());
}

TEST_F(RowRulesOfAFile, TodayIsADefaultValue) {
    Give({{"Dag", {Text("DefaultValue", "Date()")}}, {"Andel%", {Text("DefaultValue", "Now()")}}});
    using namespace std::chrono;
    const auto dayOf = [](system_clock::time_point time) {
        return duration<double, days::period>(time - sys_days{year{1899} / December / 30}).count();
    };
    rows_->AddNew();
    const double day = rows_->Field("Dag").Number(), now = rows_->Field("Andel%").Number();
    EXPECT_EQ(day, std::floor(day));
    // Local time is less than a day from the clock's own.
    EXPECT_NEAR(now, dayOf(system_clock::now()), 1.01);
    EXPECT_LE(day, now);
}

TEST_F(RowRulesOfAFile, ARuleOfAColumnIsKept) {
    Give({{"Kurs",
           {Text("ValidationRule", ">=0.5 And <=100 Or Is Null"),
            Text("ValidationText", "Orimlig kurs")}}});
    EXPECT_EQ(Add("Kurs", 0.5), ErrorNumber::None);
    EXPECT_EQ(Add("Kurs", Value()), ErrorNumber::None);
    EXPECT_EQ(Add("Kurs", 100.25), ErrorNumber::ValidationRule);
    EXPECT_EQ(Change("Kurs", 0), ErrorNumber::ValidationRule);
    EXPECT_EQ(Change("Namn", "x"), ErrorNumber::None);
    rows_->AddNew();
    rows_->Set("Kurs", 101);
    try {
        rows_->Update();
        FAIL() << "stored";
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), HasSubstr("Orimlig kurs"));
    }
}

TEST_F(RowRulesOfAFile, ARuleOfTheTableIsKept) {
    Give({{"", {Text("ValidationRule", "[Kurs]<[Andel%] Or [Innehav].[Namn]='fri'")}}});
    rows_->AddNew();
    rows_->Set("Kurs", 1);
    rows_->Set("Andel%", 2);
    rows_->Update();
    EXPECT_EQ(Change("Andel%", 1), ErrorNumber::ValidationRule);
    EXPECT_EQ(Change("Namn", "FRI"), ErrorNumber::None);
    EXPECT_EQ(Change("Andel%", 1), ErrorNumber::None);
}

TEST_F(RowRulesOfAFile, WhatCannotBeEvaluatedIsRefusedAndNotGuessed) {
    Give({{"Namn", {Text("ValidationRule", "Like \"A*\"")}}});
    EXPECT_EQ(Add("Kurs", 1), ErrorNumber::NotSupported);
    EXPECT_EQ(rows_->RecordCount(), 0);
}

TEST_F(RowRulesOfAFile, PropertiesThatContradictThemselvesAreDamage) {
    Bytes cut = Stored({{"Namn", {Text("DefaultValue", "1")}}});
    for (std::size_t size = 5; size < cut.size(); ++size) {
        const TableDef def;
        Bytes bytes(cut.begin(), cut.begin() + static_cast<std::ptrdiff_t>(size));
        FailureOf([&] { ReadRules(bytes, TextForm{}, def); });
        bytes[4] = 3;
        EXPECT_EQ(FailureOf([&] { ReadRules(bytes, TextForm{}, def); }), ErrorNumber::NotADatabase)
            << size;
    }
}

TEST(RowRulesOfSamples, AreAllRead) {
    SKIP_WITHOUT_SAMPLES();
    std::size_t defaults = 0;
    for (const auto& path : SampleFiles()) {
        const auto database = Database::Open(path, Access::ReadOnly);
        for (const std::string& table : database->TableNames()) {
            for (const ColumnRules& column : database->Rules(table).columns) {
                defaults += column.defaultValue == "0" ? 1U : 0U;
            }
        }
    }
    EXPECT_GT(defaults, 20U);
}

TEST(RowRulesOfSamples, AreThoseThatWereWritten) {
    SKIP_WITHOUT_SAMPLES();
    const auto database =
        Database::Open(*OtherFiles() / "mdb-samples" / "nwind.mdb", Access::ReadOnly);
    const auto columns = database->Describe("Order Details").columns;
    const TableRules rules = database->Rules("Order Details");
    std::map<std::string, ColumnRules> byName;
    for (std::size_t i = 0; i < columns.size(); ++i) byName[columns[i].name] = rules.columns[i];
    EXPECT_TRUE(byName["ProductID"].required);
    EXPECT_EQ(byName["Quantity"].validationRule, ">0");
    EXPECT_EQ(byName["Quantity"].defaultValue, "1");
    EXPECT_EQ(byName["Discount"].validationRule, "Between 0 And 1");
}

struct RuleCase {
    std::string rule;
    Value value;
    std::optional<bool> holds;  ///< none: not understood
};
TEST(Expression, OfAColumn) {
    TableDef def;
    def.columns.resize(1);
    def.columns[0].name = "Fält";
    def.columns[0].typeCode = static_cast<std::uint8_t>(ColumnType::Double);
    const RuleCase cases[] = {
        {">0", 1, true},
        {">0", 0, false},
        {">0", Value(), false},
        {"Is Not Null", Value(), false},
        {"Is Not Null", "", true},
        {"Is Null Or >5", Value(), true},
        {"Between 0 And 1", 0.5, true},
        {"Between 0 And 1", 1.5, false},
        {"Not Between 0 And 1", 1.5, true},
        {"In (1, 2,3)", 2, true},
        {"In (1, 2,3)", 4, false},
        {"Not In (1,2)", 4, true},
        {"\"Ja\" Or \"Nej\"", "ja", true},
        {"\"Ja\" Or \"Nej\"", "kanske", false},
        {"<>'x'", "y", true},
        {"[Fält]>=-1.5", -1.5, true},
        {"([Fält])>(2)", 3, true},
        {"(>1 And <3) Or (=7)", 7, true},
        {"Not (>1)", 0, true},
        {"Not (>1)", Value(), false},
        {">=#1/31/2001#", Date{36922}, true},
        {"<#2001-01-31#", Date{36922}, false},
        {"<=Date()", Date{36922}, true},
        {"=0.1", 0.1F, true},
        {"Len([Fält])>2", "abc", std::nullopt},
        {"Like 'a*'", "a", std::nullopt},
        {"[Annan]>1", 2, std::nullopt},
        {">1+1", 3, std::nullopt},
        {">", 3, std::nullopt},
        {"", 3, std::nullopt},
        {"((((", 3, std::nullopt},
        {"\"open", 3, std::nullopt},
        {"[Forms]![A]![B]=1", 3, std::nullopt},
    };
    for (const RuleCase& tested : cases) {
        SCOPED_TRACE(tested.rule);
        const auto rule = Rule::Parse(tested.rule, {&def, 0, {}});
        ASSERT_EQ(rule.has_value(), tested.holds.has_value());
        if (!rule) continue;
        EXPECT_EQ(rule->Holds([&](std::size_t) { return tested.value; }), *tested.holds);
    }
}

TEST(Expression, ThatNeverEndsIsNotUnderstood) {
    TableDef def;
    def.columns.resize(1);
    EXPECT_FALSE(Rule::Parse(std::string(100000, '('), {&def, 0, {}}));
    std::string many = ">1";
    for (int i = 0; i < 10000; ++i) many += " Or >1";
    EXPECT_FALSE(Rule::Parse(many, {&def, 0, {}}));
    std::string no;
    for (int i = 0; i < 100000; ++i) no += "Not ";
    EXPECT_FALSE(Rule::Parse(no + ">1", {&def, 0, {}}));
}

class OutOfRange : public Ledger {};

TEST_F(OutOfRange, ValuesAreRefusedInEveryColumn) {
    const double infinite = std::numeric_limits<double>::infinity();
    const Value values[] = {infinite,
                            -infinite,
                            std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN(),
                            Date{2958466},
                            Date{-657435},
                            Date{infinite},
                            Date{std::numeric_limits<double>::quiet_NaN()}};
    const auto rows = database->OpenRecordSet("Innehav");
    rows->AddNew();
    for (const Value& value : values) {
        for (std::size_t column = 0; column < rows->FieldCount(); ++column) {
            EXPECT_EQ(FailureOf([&] { rows->Set(column, value); }), ErrorNumber::Overflow)
                << rows->Column(column).name;
        }
    }
    EXPECT_EQ(FailureOf([&] { rows->Set("Dag", 2958466.0); }), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf([&] { rows->Set("Kurs", 1e300); }), ErrorNumber::Overflow);
    rows->Set("Dag", Date{2958465.99});
    rows->Set("Dag", Date{-657434.5});
    rows->Update();
    EXPECT_EQ(
        FailureOf([&] { Database::Create(folder / "x.mdb", LedgerTables(), Date{infinite}); }),
        ErrorNumber::Overflow);
}

TEST(ErrorTexts, QuoteAtMostTwoHundredCharacters) {
    ScratchFolder folder;
    Database::Create(folder / "file.mdb", LedgerTables());
    const auto database = Database::Open(folder / "file.mdb");
    const std::string text(100000, 'q'), letters = "SELECT * FROM " + text;
    const auto rows = database->OpenRecordSet("Innehav");
    rows->AddNew();
    const std::function<void()> failures[] = {
        [&] { database->OpenRecordSet(letters); },
        [&] { database->OpenRecordSet(letters + " WHERE"); },
        [&] { database->OpenRecordSet(text); },
        [&] { database->Execute(letters); },
        [&] { rows->FindFirst(text + " = 1"); },
        [&] { rows->FindFirst("Kurs = '" + text + "'"); },
        [&] { rows->Field(text); },
        [&] { rows->Set("Kurs", text); },
        [&] { rows->Set("Kurs", std::string(5000, '9')); },
        [&] { rows->Set("Dag", text); },
        [&] { Value(text).Number(); },
        [&] { Value(std::string(400, '9')).Integer(); },
    };
    for (const auto& failure : failures) {
        try {
            failure();
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_LT(std::string(error.what()).size(), 300U) << error.what();
        }
    }
}

}  // namespace
}  // namespace jet::test
