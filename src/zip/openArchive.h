#pragma once

#include <filesystem>

struct archive;

/// Opening the file of an archive: one source file for each operating system. The results are the
/// library's.
namespace vorlent {

constexpr std::size_t ArchiveBlock_bytes = 64 * std::size_t{1024};

int openForReading(archive* reader, const std::filesystem::path& file);
int openForWriting(archive* writer, const std::filesystem::path& file);

}  // namespace vorlent
