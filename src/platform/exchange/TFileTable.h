#pragma once

#include "forms/TValue.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A line as a spreadsheet program numbers it: the first one is 1, and a line break within a cell begins none.
struct TFileLine {
    int number = 0;
    std::vector<TValue>
        cells; ///< null where nothing stands; of a text file all texts, of a workbook numbers and dates too
};

/// The lines of a file in which something stands.
struct TFileTable {
    std::string form; ///< Portuguese: how it was recognised ("CSV, UTF-8, separado por ;")
    std::vector<TFileLine> lines;
};

/// What a file may hold at most. A small file can be made to unfold into something that fills the memory.
struct TFileLimits {
    std::size_t bytes = std::size_t{512} << 20; ///< unpacked, and of all texts together
    std::size_t cells = 10'000'000;
    std::size_t columns = 1000;
};

/// Reads a workbook (XLSX, its first sheet) or separated text (CSV), by what the file holds, not by its name. EExchange
/// when it is neither or beyond the limits.
TFileTable ReadTableFile(const std::filesystem::path& file, const TFileLimits& limits = {});

/// Separated text: the first of tab, `;` and `,` that stands in the first line; UTF-8, with its mark or without, or Windows-1252.
/// Cells may stand in quotes, and then hold separators, line breaks and doubled quotes. The apostrophe that an export puts
/// before a formula is taken off. A text that is malformed stays malformed: the check of its cell tells so.
TFileTable ReadSeparatedText(std::string_view bytes, const TFileLimits& limits = {});

/// The first sheet of a workbook. Formulas give the value that was stored with them.
TFileTable ReadWorkbook(const std::filesystem::path& file, const TFileLimits& limits = {});

} // namespace alinhavo
