// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/TableFormat.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "text/Encoding.h"

namespace zova {

namespace {

constexpr std::size_t kPiece = 256UL * 1024;

struct Signature {
  std::string_view Bytes;
  std::size_t At;
  std::string_view What;
};

using namespace std::string_view_literals;

constexpr std::array<Signature, 15> kSignatures = {{
    {"PK\x03\x04"sv, 0, "a spreadsheet (.xlsx, .ods) or another archive"},
    {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, 0, "a spreadsheet (.xls)"},
    {"$FL2"sv, 0, "a statistics program's data file (.sav)"},
    {"$FL3"sv, 0, "a statistics program's data file (.zsav)"},
    {"<stata_dta>"sv, 0, "a statistics program's data file (.dta)"},
    {"RDX2\n"sv, 0, "a statistics program's data file (.rda)"},
    {"RDX3\n"sv, 0, "a statistics program's data file (.rda)"},
    {"RDA3\n"sv, 0, "a statistics program's data file (.rda)"},
    {"X\n\0\0\0"sv, 0, "a statistics program's data file (.rds)"},
    {"\x1F\x8B"sv, 0, "a compressed file (.gz, .rds, .rda)"},
    {"BZh"sv, 0, "a compressed file (.bz2)"},
    {"\xFD"
     "7zXZ"sv,
     0, "a compressed file (.xz)"},
    {"MATLAB 5.0 MAT-file"sv, 0, "a data file of matrices (.mat)"},
    {"\x89HDF\r\n"sv, 0, "a data file of matrices (.h5, .mat)"},
    {"%PDF-"sv, 0, "a document (.pdf)"},
}};

[[noreturn]] void Refuse(const std::string& path, std::string_view what) {
  throw FileError(FileOperation::Read, path, FileCause::EndOfData,
                  "This is " + std::string(what) +
                      ", not a table of text.  Open it in the program that it comes from and save it as CSV UTF-8.");
}

// What the first bytes say of a file that is no table of text.
void RequireTable(const std::string& path, std::string_view bytes) {
  for (const Signature& signature : kSignatures) {
    if (bytes.substr(std::min(signature.At, bytes.size())).starts_with(signature.Bytes)) Refuse(path, signature.What);
  }
  const auto nulAt = [&](std::size_t first) {
    std::size_t count = 0;
    for (std::size_t i = first; i < std::min<std::size_t>(bytes.size(), 512); i += 2) count += bytes[i] == '\0';
    return count;
  };
  const bool hasMark = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  const std::size_t quarter = std::min<std::size_t>(bytes.size(), 512) / 4;
  if (hasMark || (bytes.size() >= 4 && (nulAt(0) > quarter) != (nulAt(1) > quarter))) Refuse(path, "text in UTF-16");
}

// What a file's bytes are, over all of them.
struct Bytes {
  std::string Head;
  bool IsUtf8 = true;
};

// A piece may end inside a character: its bytes are checked with the next piece.
std::size_t UnfinishedBytes(std::string_view piece) noexcept {
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, piece.size()); ++back) {
    const auto byte = static_cast<unsigned char>(piece[piece.size() - back]);
    if ((byte & 0xC0U) == 0x80) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? back : 0;
  }
  return 0;
}

bool IsAscii(std::string_view text) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, text.data() + i, 8);
    if ((eight & 0x8080808080808080U) != 0) return false;
  }
  return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(),
                     [](char c) { return (static_cast<unsigned char>(c) & 0x80U) == 0; });
}

Bytes LookThrough(Disk& disk, const std::string& path) {
  Bytes bytes;
  SequentialFile file = disk.OpenForRead(path);
  std::string piece(kPiece + 4, '\0');
  std::size_t kept = 0;
  for (;;) {
    const std::size_t got = file.Read(piece.data() + kept, kPiece);
    if (got == 0) break;
    const std::string_view text(piece.data(), kept + got);
    if (bytes.Head.size() < kPiece) {
      if (bytes.Head.empty()) RequireTable(path, text);
      bytes.Head.append(text.substr(kept));
    }
    if (!bytes.IsUtf8) {
      if (bytes.Head.size() >= kPiece) break;
      continue;
    }
    if (kept == 0 && IsAscii(text)) continue;
    const std::size_t unfinished = UnfinishedBytes(text);
    bytes.IsUtf8 = IsValidUtf8(text.substr(0, text.size() - unfinished));
    kept = bytes.IsUtf8 ? unfinished : 0;
    std::memmove(piece.data(), text.data() + text.size() - kept, kept);
  }
  if (kept != 0) bytes.IsUtf8 = false;
  return bytes;
}

using Rows = std::vector<std::vector<std::string>>;

Rows FirstRows(const std::string& path, std::string_view head, char delimiter) {
  Rows rows;
  rows.reserve(TableFormat::kSampleRows + 1);
  CsvReader reader(TextSource(head), delimiter);
  try {
    while (rows.size() <= TableFormat::kSampleRows && reader.Next()) {
      rows.emplace_back(reader.Fields().begin(), reader.Fields().end());
    }
  } catch (const CsvError& fault) {
    // The head may end inside a quoted field.
    if (rows.empty()) throw TableError(path, fault.Line(), fault.what());
  }
  if (head.size() >= kPiece && rows.size() > 1 && rows.size() <= TableFormat::kSampleRows) rows.pop_back();  // cut
  return rows;
}

// A first line "sep=;" tells spreadsheets the delimiter.
std::optional<char> NamedDelimiter(std::string_view head) {
  constexpr std::string_view kSign = "sep=";
  if (head.starts_with(kUtf8Mark)) head.remove_prefix(kUtf8Mark.size());
  if (head.size() < kSign.size() + 2 || !EqualsIgnoringCase(head.substr(0, kSign.size()), kSign)) return std::nullopt;
  const char delimiter = head[kSign.size()];
  const char end = head[kSign.size() + 1];
  if (DelimiterName(delimiter).empty() || (end != '\r' && end != '\n')) return std::nullopt;
  return delimiter;
}

// How well a delimiter fits: the rows with as many fields as the first, if those are several.
std::size_t Fit(const Rows& rows) {
  if (rows.empty() || rows.front().size() < 2) return 0;
  const std::size_t count = rows.front().size();
  const auto fits = std::count_if(rows.begin(), rows.end(), [&](const auto& row) { return row.size() == count; });
  return static_cast<std::size_t>(fits) * 1000 + std::min<std::size_t>(count, 999);
}

char FindDelimiter(const std::string& path, std::string_view head) {
  char best = ',';
  std::size_t most = 0;
  for (const char delimiter : {',', '\t', ';'}) {
    std::size_t fit = 0;
    try {
      fit = Fit(FirstRows(path, head, delimiter));
    } catch (const FileError&) {
      continue;  // reported when it is the one chosen
    }
    if (fit <= most) continue;
    most = fit;
    best = delimiter;
  }
  return best;
}

// Passes Windows-1252 on as UTF-8.
class Transcoder {
 public:
  explicit Transcoder(SequentialFile file) : m_file(std::move(file)) {}

  std::size_t Read(char* buffer, std::size_t size) {
    if (m_next == m_text.size()) {
      m_bytes.resize(kPiece);
      m_bytes.resize(m_file.Read(m_bytes.data(), kPiece));
      m_text = FromWindows1252(m_bytes);
      m_next = 0;
    }
    const std::size_t taken = std::min(size, m_text.size() - m_next);
    std::memcpy(buffer, m_text.data() + m_next, taken);
    m_next += taken;
    return taken;
  }

 private:
  SequentialFile m_file;
  std::string m_bytes;
  std::string m_text;
  std::size_t m_next = 0;
};

}  // namespace

FileError TableError(const std::string& path, std::size_t line, const std::string& text) {
  return {FileOperation::Read, path, FileCause::EndOfData, "Line " + std::to_string(line) + ": " + text + "."};
}

TableFormat FindTableFormat(Disk& disk, const std::string& path, const TableOptions& options) {
  Bytes bytes = LookThrough(disk, path);
  TableFormat format;
  format.HasHeader = options.HasHeader;
  format.Encoding = options.Encoding.value_or(bytes.IsUtf8 ? TableEncoding::Utf8 : TableEncoding::Windows1252);
  if (format.Encoding == TableEncoding::Utf8 && !bytes.IsUtf8) {
    throw FileError(FileOperation::Read, path, FileCause::EndOfData,
                    "The bytes are not UTF-8.  Choose the encoding Windows-1252, or save the table as CSV UTF-8.");
  }
  if (format.Encoding == TableEncoding::Windows1252) bytes.Head = FromWindows1252(bytes.Head);
  const auto named = NamedDelimiter(bytes.Head);
  format.Delimiter = options.Delimiter ? *options.Delimiter : named ? *named : FindDelimiter(path, bytes.Head);
  Rows rows = FirstRows(path, bytes.Head, format.Delimiter);
  if (named) rows.erase(rows.begin());
  const auto first = std::find_if(rows.begin(), rows.end(), HasText<Rows::value_type>);
  format.RowsAbove = (named ? 1U : 0U) + static_cast<std::size_t>(first - rows.begin()) + (format.HasHeader ? 1U : 0U);
  std::erase_if(rows, [](const auto& row) { return !HasText(row); });
  if (rows.empty()) {
    throw FileError(FileOperation::Read, path, FileCause::EndOfData, "The file is empty; a table has rows.");
  }
  if (format.HasHeader) {
    format.Names = std::move(rows.front());
    rows.erase(rows.begin());
  } else {
    for (std::size_t i = 1; i <= rows.front().size(); ++i) format.Names.push_back("#" + std::to_string(i));
  }
  if (rows.size() > TableFormat::kSampleRows) rows.pop_back();
  format.Sample = std::move(rows);
  return format;
}

CsvReader OpenTable(Disk& disk, const std::string& path, const TableFormat& format) {
  if (format.Encoding == TableEncoding::Windows1252) {
    auto transcoder = std::make_shared<Transcoder>(disk.OpenForRead(path));
    return CsvReader([transcoder](char* buffer, std::size_t size) { return transcoder->Read(buffer, size); },
                     format.Delimiter);
  }
  auto file = std::make_shared<SequentialFile>(disk.OpenForRead(path));
  return CsvReader([file](char* buffer, std::size_t size) { return file->Read(buffer, size); }, format.Delimiter);
}

}  // namespace zova
