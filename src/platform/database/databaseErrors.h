#pragma once

#include <string_view>

namespace alinhavo {

// The texts of database errors, alike on both servers. Names are logical: without schema, in upper case.

[[noreturn]] void RaiseDuplicate(std::string_view constraint, std::string_view table);
/// A row that others refer to is deleted or changed.
[[noreturn]] void RaiseReferenced(std::string_view constraint, std::string_view table);
/// A row refers to one that does not exist.
[[noreturn]] void RaiseNotFound(std::string_view constraint, std::string_view table);
[[noreturn]] void RaiseNotNull(std::string_view table, std::string_view column);
[[noreturn]] void RaiseLock();
[[noreturn]] void RaiseConnection();
[[noreturn]] void RaiseCancelled();
/// The server cannot write its files.
[[noreturn]] void RaiseDisk();
[[noreturn]] void RaiseTooLong();
[[noreturn]] void RaiseNoNumber();
[[noreturn]] void RaiseNoDate();
[[noreturn]] void RaiseOutOfRange();
[[noreturn]] void RaiseNoUtf8();

} // namespace alinhavo
