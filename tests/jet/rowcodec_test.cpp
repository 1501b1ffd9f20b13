#include "jet/table/rowcodec.h"

#include "jet/error.h"
#include "jet/table/table.h"
#include "memoryfile.h"
#include "versions.h"

#include <random>

namespace {

using namespace jet::detail;
using jet::Bytes;
using jet::ColumnType;
using jet::Error;
using jet::ErrorNumber;
using jet::Value;
using Stored = std::vector<std::uint8_t>;

TableDef TwoTexts() {
    TableDef def;
    def.maxColumns = def.variableCount = 2;
    for (std::uint16_t i = 0; i < 2; ++i) {
        ColumnDef column;
        column.name = i == 0 ? "a" : "b";
        column.typeCode = static_cast<std::uint8_t>(ColumnType::Text);
        column.number = column.variableNumber = i;
        column.flags = kColumnUpdatable;
        column.length = 100;
        def.columns.push_back(column);
    }
    return def;
}

std::vector<StoredColumn> Texts(const Stored& first, const Stored& second) {
    return {{true, first}, {true, second}};
}

TEST(RowCodec, MakesTheBytesOtherEnginesMake) {
    const Stored jet3{0x02, 0x76, 0x75, 0x03, 0x02, 0x01, 0x02, 0x03};
    EXPECT_EQ(BuildRow(kJet3, TwoTexts(), Texts({'v'}, {'u'})), jet3);
    const Stored jet4{0x02, 0x00, 0x76, 0x00, 0x75, 0x00, 0x06, 0x00,
                      0x04, 0x00, 0x02, 0x00, 0x02, 0x00, 0x03};
    EXPECT_EQ(BuildRow(kJet4, TwoTexts(), Texts({'v', 0}, {'u', 0})), jet4);
}

TEST(RowCodec, MakesAPointsRow) {
    const auto file = jettest::EmptyFile(kJet4);
    TableStore table(*file, jettest::AddTable(*file, {{"FondNr", ColumnType::Text, 20},
                                                      {"XCord", ColumnType::Long, 4},
                                                      {"YCord", ColumnType::Long, 4},
                                                      {"KontoId", ColumnType::Long, 4}}));
    const RowPointer row = table.Insert(
        std::vector<Value>{"249 995", std::int32_t{36526}, std::int32_t{60}, std::int32_t{39}});
    const ByteView bytes = RowAt(*file, row);
    const Stored expected{0x04, 0x00, 0xae, 0x8e, 0x00, 0x00, 0x3c, 0x00, 0x00, 0x00,
                          0x27, 0x00, 0x00, 0x00, 0xff, 0xfe, 0x32, 0x34, 0x39, 0x20,
                          0x39, 0x39, 0x35, 0x17, 0x00, 0x0e, 0x00, 0x01, 0x00, 0x0f};
    EXPECT_EQ(Stored(bytes.begin(), bytes.end()), expected);
}

TEST(RowCodec, KeepsNullAndEmptyApart) {
    const TableDef def = TwoTexts();
    const Stored row = BuildRow(kJet4, def, std::vector<StoredColumn>{{true, {}}, {false, {}}});
    const RowView view(kJet4, def, row, {9, 0});
    EXPECT_FALSE(view.IsNull(def.columns[0]));
    EXPECT_TRUE(view.Raw(def.columns[0]).empty());
    EXPECT_TRUE(view.IsNull(def.columns[1]));
}

TEST(RowCodec, Jet3RowsOfEveryLengthReadBack) {
    const TableDef def = TwoTexts();
    for (std::size_t first = 0; first < 1000; first += 7) {
        for (const std::size_t second : {0, 1, 100, 254, 255, 256, 257, 500, 511, 512, 900}) {
            const Stored a(first, 0xAA), b(second, 0xBB);
            const Stored row = BuildRow(kJet3, def, Texts(a, b));
            const RowView view(kJet3, def, row, {9, 0});
            const ByteView readA = view.Raw(def.columns[0]), readB = view.Raw(def.columns[1]);
            ASSERT_EQ(Stored(readA.begin(), readA.end()), a) << first << " " << second;
            ASSERT_EQ(Stored(readB.begin(), readB.end()), b) << first << " " << second;
        }
    }
}

TEST(RowCodec, ColumnsAddedAfterARowWasWrittenAreNull) {
    TableDef def = TwoTexts();
    const Stored row = BuildRow(kJet4, def, Texts({'v', 0}, {'u', 0}));
    ColumnDef added = def.columns[1];
    added.number = added.variableNumber = 2;
    def.columns.push_back(added);
    def.maxColumns = def.variableCount = 3;
    const RowView view(kJet4, def, row, {9, 0});
    EXPECT_TRUE(view.IsNull(def.columns[2]));
    EXPECT_FALSE(view.IsNull(def.columns[1]));
}

TEST(RowCodec, ARowTooLongForAPageIsRefused) {
    const TableDef def = TwoTexts();
    EXPECT_THROW(BuildRow(kJet4, def, Texts(Stored(4000), Stored(100))), Error);
    EXPECT_THROW(BuildRow(kJet3, def, Texts(Stored(1500), Stored(600))), Error);
}

TEST(RowCodec, EveryCutOfARowIsAnErrorOrReads) {
    const TableDef def = TwoTexts();
    for (const Layout* layout : {&kJet3, &kJet4}) {
        const Stored row = BuildRow(*layout, def, Texts(Stored(300, 1), Stored(300, 2)));
        for (std::size_t length = 0; length < row.size(); ++length) {
            try {
                const RowView view(*layout, def, ByteView(row).first(length), {9, 0});
                for (const ColumnDef& column : def.columns) view.Raw(column);
            } catch (const Error& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
            }
        }
    }
}

/// Values of every type in both versions, through the pages.
class EveryType : public testing::TestWithParam<const Layout*> {
  protected:
    void SetUp() override {
        file_ = jettest::EmptyFile(*GetParam());
        const auto text = static_cast<std::uint16_t>(50 * GetParam()->textUnit);
        table_ = std::make_unique<TableStore>(
            *file_, jettest::AddTable(*file_, {{"Ja", ColumnType::Boolean, 1},
                                               {"Byte", ColumnType::Byte, 1},
                                               {"Heltal", ColumnType::Integer, 2},
                                               {"Långt", ColumnType::Long, 4},
                                               {"Belopp", ColumnType::Currency, 8},
                                               {"Enkel", ColumnType::Single, 4},
                                               {"Dubbel", ColumnType::Double, 8},
                                               {"Dag", ColumnType::Date, 8},
                                               {"Binärt", ColumnType::Binary, 20},
                                               {"Text", ColumnType::Text, text},
                                               {"Ole", ColumnType::Ole, 0},
                                               {"Memo", ColumnType::Memo, 0},
                                               {"Guid", ColumnType::Guid, 16},
                                               {"Decimal", ColumnType::Numeric, 17}}));
    }
    std::vector<Value> Read(RowPointer where) const {
        std::vector<Value> values;
        const RowView row = table_->Read(where);
        for (const ColumnDef& column : table_->Def().columns) {
            values.push_back(DecodeColumn(*file_, column, row));
        }
        return values;
    }
    static std::vector<Value> Some() {
        jet::Guid guid;
        for (std::uint8_t i = 0; i < 16; ++i) guid.bytes[i] = i;
        return {true,
                std::uint8_t{200},
                std::int16_t{-12345},
                std::int32_t{-2000000000},
                jet::Currency{-123456789},
                1.25F,
                -1e300,
                jet::Date{-1.25},
                Bytes{1, 0, 255},
                "Åäö é ü 1½",
                Bytes(10000, 7),
                std::string(9000, 'm') + "å",
                guid,
                jet::Numeric{true, {1, 2, 3, 4}, 0}};
    }
    std::unique_ptr<PageFile> file_;
    std::unique_ptr<TableStore> table_;
};

TEST_P(EveryType, ReadsBackWhatWasWritten) {
    const auto values = Some();
    EXPECT_EQ(Read(table_->Insert(values)), values);
}

TEST_P(EveryType, ReadsBackNulls) {
    std::vector<Value> values(14);
    values[0] = false;
    EXPECT_EQ(Read(table_->Insert(values)), values);
}

TEST_P(EveryType, AnUpdateKeepsTheBytesOfTheOtherColumns) {
    const RowPointer row = table_->Insert(Some());
    std::vector<std::optional<Value>> changes(14);
    changes[3] = std::int32_t{5};
    table_->Update(row, changes);
    std::vector<Value> expected = Some();
    expected[3] = std::int32_t{5};
    EXPECT_EQ(Read(row), expected);
}

TEST_P(EveryType, RefusesAValueOfAnotherType) {
    std::vector<Value> values = Some();
    values[3] = "text";
    EXPECT_THROW(table_->Insert(values), Error);
}

TEST_P(EveryType, RefusesATextLongerThanItsColumn) {
    std::vector<Value> values = Some();
    values[9] = std::string(51, 'x');
    EXPECT_THROW(table_->Insert(values), Error);
    values[9] = std::string(50, 'x');
    EXPECT_EQ(Read(table_->Insert(values)), values);
}

TEST_P(EveryType, LongValuesOfEveryLengthReadBack) {
    for (const std::size_t length : {0, 1, 31, 32, 33, 63, 64, 65, 1000, 2031, 2032, 2033, 4075,
                                     4076, 4077, 8144, 8145, 30000}) {
        std::vector<Value> values(14);
        values[0] = false;
        Bytes bytes(length);
        for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
        values[10] = bytes;
        EXPECT_EQ(Read(table_->Insert(values)), values) << length;
    }
}

TEST_P(EveryType, TheRoomOfAReplacedLongValueIsUsedAgain) {
    const RowPointer row = table_->Insert(Some());
    std::vector<std::optional<Value>> changes(14);
    for (int i = 0; i < 3; ++i) {
        changes[11] = std::string(9000, static_cast<char>('a' + i));
        table_->Update(row, changes);
    }
    const std::uint32_t pages = file_->PageCount();
    for (int i = 0; i < 200; ++i) {
        changes[11] = std::string(9000, static_cast<char>('a' + i % 26));
        table_->Update(row, changes);
    }
    EXPECT_LE(file_->PageCount(), pages + 2);
}

INSTANTIATE_FOR_BOTH_VERSIONS(EveryType);

}  // namespace
