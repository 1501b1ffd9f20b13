#pragma once
// Page 0, the file's header: what kind of file it is, and what it says, between bytes and struct.

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/storage/fileimage.h"
#include "jet/storage/layout.h"

#include <cstdint>

namespace jet::detail {

/// What the header page says, unmasked. The defaults are those of a new file.
struct FileHeader {
    std::uint16_t collation = 1033, collationVersion = 0, codePage = 1252;
    std::uint16_t buildNumber = 0;
    double created = 0;  ///< days since 1899-12-30; 0 in a version that has none
};

/// The kind of file, by its first bytes in clear. Throws ForeignFormat, NewerFormat, NotADatabase.
const Layout& LayoutOf(const FileImage& image);

/// Throws NotADatabase (damaged), Encrypted, PasswordProtected.
FileHeader DecodeHeader(const Layout& layout, ByteView page);
/// The same on a page of zeros, in Jet 4: new files are of no other version.
void EncodeHeader(const FileHeader& header, ByteSpan page);

/// Applies the header page's mask to (a copy of) page 0: masks when clear, unmasks when masked.
void MaskHeader(const Layout& layout, ByteSpan page);

/// Throws the error, naming the header.
[[noreturn]] void ThrowHeader(ErrorNumber number, const char* what);

}  // namespace jet::detail
