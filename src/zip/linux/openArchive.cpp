#include "zip/openArchive.h"

#include <archive.h>

namespace vorlent {

int openForReading(archive* reader, const std::filesystem::path& file) {
  return archive_read_open_filename(reader, file.c_str(), ArchiveBlock_bytes);
}

int openForWriting(archive* writer, const std::filesystem::path& file) {
  return archive_write_open_filename(writer, file.c_str());
}

}  // namespace vorlent
