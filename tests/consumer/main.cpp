// The example of the library's README as a program of its own, which then looks at the file again.

#include <cstdio>
#include <filesystem>
#include <jet/database.h>
#include <jet/error.h>
#include <jet/files.h>
#include <jet/transaction.h>

void Example(const std::filesystem::path& path);

int main(int count, char** arguments) try {
    if (count != 2) return 2;
    const std::filesystem::path path = arguments[1];
    Example(path);
    const auto database = jet::Database::Open(path, jet::Access::ReadOnly);
    const auto rows = database->OpenRecordSet("People");
    const bool asExpected =
        rows->RecordCount() == 1 && rows->Field("Name").Text() == "Östen" && database->ReadOnly();
    std::printf("%s\n", asExpected && database->Verify().empty() ? "sound" : "not as expected");
    return asExpected ? 0 : 1;
} catch (const jet::Error& error) {
    std::printf("error %d: %s\n", static_cast<int>(error.Number()), error.what());
    return 1;
}
