#pragma once
// The one exception that the library throws, and its numbers.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace jet {

/// What failed, by the numbers under which programs that use such files have known it for long. A
/// program that throws `Error` itself may add numbers of its own.
enum class ErrorNumber : std::int32_t {
    None = 0,
    InvalidProcedureCall = 5,  ///< a design or a call that cannot be
    Overflow = 6,              ///< a number or date that its place cannot hold
    OutOfMemory = 7,           ///< nothing was changed
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIo = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    FileInUse = 75,
    PathNotFound = 76,
    InvalidUseOfNull = 94,
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
    Encrypted = 3112,
    FieldTooLong = 3163,
    RecordDeleted = 3167,
    ChangedByOther = 3197,     ///< the file was changed by another program since it was opened
    RelatedRecords = 3200,     ///< rows of another table refer to this one
    RelatedRowMissing = 3201,  ///< the row of another table that this one refers to is not there
    NotSupported = 3251,
    FieldNotFound = 3265,
    ForeignFormat = 3274,     ///< another product's file, or no database at all
    RequiredField = 3314,     ///< null in a column that must have a value
    ZeroLength = 3315,        ///< an empty text in a column that allows none
    ValidationRule = 3317,    ///< against a rule of the column or the table
    NewerFormat = 3343,       ///< a later version of the format (.accdb)
    ObjectClosed = 3420,      ///< the file of this object was closed
    CollationUnknown = 3800,  ///< a text index has a sort order that must not be guessed
};

/// A failed operation. `what()` is one English line for developers, in UTF-8: what failed, on what,
/// where. It quotes at most 200 characters of a text that it was given. A copy is independent of
/// the object and the file that it came from.
class Error : public std::runtime_error {
  public:
    Error(ErrorNumber number, const std::string& what)
        : std::runtime_error(what), number_(number) {}
    ErrorNumber Number() const noexcept { return number_; }

  private:
    ErrorNumber number_;
};

/// The number for an `errno` that opening, reading or writing a file left; DeviceIo for one that
/// says nothing more. For programs that handle files beside this library and want to report both
/// alike. Any thread may call it.
ErrorNumber NumberOfSystemError(int code) noexcept;

}  // namespace jet
