#include "zip/ZipArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

#include "base/systemPath.h"
#include "base/text.h"
#include "zip/entryPath.h"
#include "zip/openArchive.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

constexpr int Permissions = 0644;

struct FreeReader {
  void operator()(archive* reader) const { archive_read_free(reader); }
};
struct FreeWriter {
  void operator()(archive* writer) const { archive_write_free(writer); }
};
struct FreeEntry {
  void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};
using Reader = std::unique_ptr<archive, FreeReader>;
using Writer = std::unique_ptr<archive, FreeWriter>;
using Entry = std::unique_ptr<archive_entry, FreeEntry>;

[[noreturn]] void fail(const std::string& why) { throw std::runtime_error(why); }

std::string reason(archive* a) {
  const char* text = archive_error_string(a);
  return text ? text : "unknown reason";
}

void check(archive* a, int result, const std::string& what) {
  if (result < ARCHIVE_WARN) fail(what + ": " + reason(a));
}

/// Goes again when what was to be made in it did not succeed.
class Undo {
 public:
  explicit Undo(fs::path made) : made_(std::move(made)) {}
  ~Undo() {
    std::error_code ignored;
    if (!kept_) fs::remove_all(made_, ignored);
  }
  Undo(const Undo&) = delete;
  Undo& operator=(const Undo&) = delete;
  void keep() { kept_ = true; }

 private:
  fs::path made_;
  bool kept_ = false;
};

/// Counts against the limits.
class Counted {
 public:
  explicit Counted(const ZipLimits& limits) : left_(limits) {}
  void entry() {
    if (--left_.entries < 0) fail("There are too many files in it");
  }
  void bytes(std::size_t count) {
    left_.bytes -= static_cast<long long>(count);
    if (left_.bytes < 0) fail("It is too large");
  }

 private:
  ZipLimits left_;
};

/// The path from the folder, with slashes.
std::string entryName(const fs::path& file, const fs::path& folder) {
  return replaced(nameOf(fs::relative(file, folder)), std::string(1, fs::path::preferred_separator),
                  "/");
}

void packFile(archive* writer, const fs::path& file, const std::string& name, Counted& counted) {
  counted.entry();
  std::ifstream in(file, std::ios::binary);
  if (!in) fail(nameOf(file) + " cannot be read");
  const Entry entry(archive_entry_new());
  archive_entry_set_pathname_utf8(entry.get(), name.c_str());
  // The library would crash.
  if (!archive_entry_pathname(entry.get()))
    fail(name + " has letters that this system cannot pack");
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), Permissions);
  archive_entry_set_size(entry.get(), static_cast<la_int64_t>(fs::file_size(file)));
  check(writer, archive_write_header(writer, entry.get()), name);
  std::vector<char> block(ArchiveBlock_bytes);
  while (in.read(block.data(), static_cast<std::streamsize>(block.size())), in.gcount() > 0) {
    const auto count = static_cast<std::size_t>(in.gcount());
    counted.bytes(count);
    if (archive_write_data(writer, block.data(), count) < 0) fail(name + ": " + reason(writer));
  }
}

void unpackFile(archive* reader, const fs::path& file, Counted& counted) {
  fs::create_directories(file.parent_path());
  if (fs::exists(file)) fail(nameOf(file.filename()) + " is in it twice");
  std::ofstream out(file, std::ios::binary);
  std::vector<char> block(ArchiveBlock_bytes);
  for (;;) {
    const la_ssize_t count = archive_read_data(reader, block.data(), block.size());
    if (count < 0) fail(nameOf(file.filename()) + ": " + reason(reader));
    if (count == 0) break;
    counted.bytes(static_cast<std::size_t>(count));
    out.write(block.data(), count);
  }
  out.close();
  if (!out) fail(nameOf(file.filename()) + " cannot be written: " + std::strerror(errno));
}

void unpackEntry(archive* reader, archive_entry* entry, const fs::path& folder, Counted& counted) {
  counted.entry();
  const char* name = archive_entry_pathname_utf8(entry);
  const auto path = name ? entryPath(name) : std::nullopt;
  if (!path) fail(std::string("It has a file that lies outside: ") + (name ? name : "no name"));
  const bool plain = !archive_entry_hardlink(entry) && !archive_entry_symlink(entry);
  if (plain && archive_entry_filetype(entry) == AE_IFDIR)
    fs::create_directories(folder / systemPath(*path));
  else if (plain && archive_entry_filetype(entry) == AE_IFREG)
    unpackFile(reader, folder / systemPath(*path), counted);
  else
    fail(*path + " in it is no file");
}

}  // namespace

void packFolder(const std::string& folder, const std::string& zip, const ZipLimits& limits) {
  const fs::path from = systemPath(folder);
  const fs::path to = systemPath(zip);
  std::error_code outOfReach;
  if (fs::exists(to, outOfReach)) fail(zip + " is there already");
  Undo undo(to);  // goes behind the writer: what is open cannot be removed on Windows
  const Writer writer(archive_write_new());
  check(writer.get(), archive_write_set_format_zip(writer.get()), zip);
  check(writer.get(), archive_write_set_options(writer.get(), "hdrcharset=UTF-8"), zip);
  check(writer.get(), openForWriting(writer.get(), to), zip + " cannot be written");
  Counted counted(limits);
  for (const auto& entry : fs::recursive_directory_iterator(from))
    if (entry.is_regular_file() && !entry.is_symlink())
      packFile(writer.get(), entry.path(), entryName(entry.path(), from), counted);
  check(writer.get(), archive_write_close(writer.get()), zip + " cannot be written");
  undo.keep();
}

void unpackZip(const std::string& zip, const std::string& folder, const ZipLimits& limits) {
  const Reader reader(archive_read_new());
  check(reader.get(), archive_read_support_format_zip(reader.get()), zip);
  check(reader.get(), openForReading(reader.get(), systemPath(zip)), zip);
  const fs::path to = systemPath(folder);
  if (!fs::create_directory(to)) fail(folder + " is there already");
  Undo undo(to);
  Counted counted(limits);
  archive_entry* entry = nullptr;
  int result = ARCHIVE_OK;
  while ((result = archive_read_next_header(reader.get(), &entry)) != ARCHIVE_EOF) {
    check(reader.get(), result, zip);
    unpackEntry(reader.get(), entry, to, counted);
  }
  undo.keep();
}

}  // namespace vorlent
