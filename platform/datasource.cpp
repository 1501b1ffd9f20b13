#include "platform/datasource.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QString>

#include <cstdint>
#include <utility>

struct DataSource::State {
    std::string name, caption;
    std::shared_ptr<jet::Database> database;
    std::string source;
    std::shared_ptr<jet::RecordSet> records;
    bool given = false;  // the record set came from outside, not from `source`
    Through through;
};

DataSource::DataSource(std::string name, std::string caption, QObject* parent)
    : QObject(parent), state_(std::make_unique<State>()) {
    state_->name = std::move(name);
    state_->caption = std::move(caption);
}

DataSource::~DataSource() = default;

const std::string& DataSource::Name() const {
    return state_->name;
}
const std::string& DataSource::Caption() const {
    return state_->caption;
}

void DataSource::SetDatabase(std::shared_ptr<jet::Database> database) {
    state_->database = std::move(database);
}

void DataSource::SetRecordSource(std::string source) {
    state_->source = std::move(source);
    state_->given = false;
}

void DataSource::SetRecordSet(std::shared_ptr<jet::RecordSet> records) {
    state_->given = records != nullptr;
    state_->records = std::move(records);
    emit Refreshed();
}

void DataSource::Refresh() {
    if (state_->given) {
        state_->records->Requery();
        emit Refreshed();
        return;
    }
    // Rows that can no longer be vouched for are not left standing
    // when the source cannot be opened.
    const std::shared_ptr<jet::RecordSet> former = std::exchange(state_->records, nullptr);
    try {
        if (!state_->database) {
            throw Error{kObjectNotSet, state_->name + " is not bound to a file"};
        }
        state_->records = state_->database->OpenRecordSet(state_->source);
    } catch (const Error&) {
        if (former) {
            emit Refreshed();
        }
        throw;
    }
    emit Refreshed();
}

void DataSource::Close() noexcept {
    const bool wasAttached = IsAttached();
    state_->records.reset();
    state_->database.reset();
    state_->given = false;
    if (wasAttached) {
        emit Refreshed();
    }
}

bool DataSource::IsAttached() const {
    return state_->records != nullptr;
}

jet::RecordSet& DataSource::Records() {
    if (!state_->records) {
        throw Error{kObjectNotSet, state_->name + " has no record set"};
    }
    return *state_->records;
}

void DataSource::Moving(const std::function<void(jet::RecordSet&)>& move) {
    jet::RecordSet& records = Records();
    const bool forgetsPending = records.Pending();
    const std::int32_t before = records.Position();
    move(records);
    if (forgetsPending || records.Position() != before) {
        emit CurrentRowChanged();
    }
}

bool DataSource::Empty() {
    return Records().Empty();
}
bool DataSource::Eof() {
    return Records().Eof();
}
std::int32_t DataSource::RecordCount() {
    return Records().RecordCount();
}
std::int32_t DataSource::Position() {
    return Records().Position();
}

void DataSource::MoveFirst() {
    Moving([](jet::RecordSet& records) { records.MoveFirst(); });
}

void DataSource::MoveLast() {
    Moving([](jet::RecordSet& records) { records.MoveLast(); });
}

void DataSource::MoveNext() {
    Moving([](jet::RecordSet& records) { records.MoveNext(); });
}

void DataSource::Move(std::int32_t rows) {
    Moving([rows](jet::RecordSet& records) { records.Move(rows); });
}

void DataSource::MoveTo(std::int32_t position) {
    Moving([position](jet::RecordSet& records) { records.MoveTo(position); });
}

bool DataSource::FindFirst(std::string_view criterion) {
    bool found = false;
    Moving([&](jet::RecordSet& records) { found = records.FindFirst(criterion); });
    return found;
}

jet::Value DataSource::Field(std::size_t position) {
    return Records().Field(position);
}
jet::Value DataSource::Field(std::string_view name) {
    return Records().Field(name);
}

void DataSource::AddNew() {
    Records().AddNew();
}
void DataSource::Edit() {
    Records().Edit();
}
bool DataSource::Pending() const {
    return state_->records && state_->records->Pending();
}

/// Where the file allows no empty text, an emptied field is one without a value.
void DataSource::Set(std::size_t position, jet::Value value) {
    jet::RecordSet& records = Records();
    const std::string* text = std::get_if<std::string>(&value.Held());
    const bool becomesNull = text != nullptr && text->empty() && !records.AllowsEmptyText(position);
    records.Set(position, becomesNull ? jet::Value() : std::move(value));
}

void DataSource::Set(std::string_view name, jet::Value value) {
    Set(Records().FieldPosition(name), std::move(value));
}

void DataSource::StoreThrough(Through through) {
    state_->through = std::move(through);
}

void DataSource::Store(const std::function<void()>& store) {
    if (!state_->through) return store();
    state_->through(store);
}

void DataSource::Update() {
    Store([this] { Records().Update(); });
    emit RowStored();  // without its position, which would make a large record set find its rows
    emit CurrentRowChanged();
}

void DataSource::CancelUpdate() {
    const bool wasPending = Pending();
    Records().CancelUpdate();
    if (wasPending) {
        emit CurrentRowChanged();
    }
}

void DataSource::Delete() {
    const std::int32_t position = Records().Position();
    Store([this] { Records().Delete(); });
    emit RowDeleted(position);
    emit CurrentRowChanged();
}

bool DataSource::Guard(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const Error& error) {
        emit Failed(static_cast<int>(error.Number()), ToQt(error.what()));
        return false;
    }
}
