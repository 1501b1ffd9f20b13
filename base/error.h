#pragma once
// The one exception type of the program and the numbers it carries. Knows no texts for the user.

#include <cstdint>
#include <stdexcept>
#include <string>

/// Numbers that users see in message boxes and in the log.
enum class ErrorNumber : std::int32_t {
    None = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIo = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    FileInUse = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    PrinterError = 482,
    NoPendingRow = 3020,  ///< Set or Update without AddNew or Edit
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    ReadOnly = 3027,
    PasswordProtected = 3031,
    NotADatabase = 3049,  ///< damaged, or not a file of this format
    NullKey = 3058,
    TooFewParameters = 3061,  ///< a name in a query that is no column
    SyntaxError = 3075,
    TableNotFound = 3078,
    ObjectExists = 3010,
    FieldTooLong = 3163,
    RecordDeleted = 3167,
    RelatedRecords = 3200,     ///< rows of another table refer to this one
    RelatedRowMissing = 3201,  ///< the row of another table that this one refers to is not there
    ChangedByOther = 3197,     ///< the file was changed by another program since it was opened
    FieldNotFound = 3265,
    NotSupported = 3251,
    Encrypted = 3112,
    NewerFormat = 3343,    ///< a later version of the format (.accdb)
    ForeignFormat = 3274,  ///< another product's file, or no database at all
    ObjectClosed = 3420,
    RequiredField = 3314,     ///< null in a column that must have a value
    ZeroLength = 3315,        ///< an empty text in a column that allows none
    ValidationRule = 3317,    ///< against a rule of the column or the table
    CollationUnknown = 3800,  ///< a text index has a sort order that this engine must not guess
};

/// A failed operation. `what()` is one English line for developers: what failed, on what, where.
class Error : public std::runtime_error {
  public:
    Error(ErrorNumber number, const std::string& what)
        : std::runtime_error(what), number_(number) {}
    ErrorNumber Number() const noexcept { return number_; }

  private:
    ErrorNumber number_;
};

/// Runs one statement at a time and swallows its `Error`, remembering the number of the last one.
/// A later statement that succeeds leaves the remembered number as it is.
class Skipping {
  public:
    template <typename Statement>
    void operator()(Statement&& statement) {
        try {
            statement();
        } catch (const Error& error) {
            number_ = error.Number();
        }
    }
    ErrorNumber Number() const noexcept { return number_; }

  private:
    ErrorNumber number_ = ErrorNumber::None;
};
