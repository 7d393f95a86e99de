#include "platform/win32/SystemFiles.h"

#include <windows.h>

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "gtest/gtest.h"

namespace vorlent {
namespace {

/// The names of the libraries that this program imports, from its own import table.
std::vector<std::string> ownImports() {
  const auto* image = reinterpret_cast<const char*>(GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
  const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  std::vector<std::string> names;
  for (const auto* import =
           reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(image + table.VirtualAddress);
       import->Name != 0; ++import)
    names.emplace_back(image + import->Name);
  return names;
}

TEST(SystemFiles, EachHasItsFullPathAndIsThere) {
  const auto files = systemFiles();
  ASSERT_FALSE(files.empty());
  for (const std::string& path : files) {
    EXPECT_TRUE(path.starts_with(systemFolder() + "\\")) << path;
    EXPECT_TRUE(fileExists(path)) << path;
  }
}

TEST(SystemFiles, TheFolderIsTheOneOfWindows) {
  EXPECT_TRUE(systemFolder().ends_with("\\system32")) << systemFolder();
  EXPECT_TRUE(folderExists(systemFolder()));
}

TEST(SystemFiles, WhatTheAdaptersImportIsAmongThem) {
  const auto imports = ownImports();
  ASSERT_FALSE(imports.empty());
  for (const std::string& name : imports)
    EXPECT_TRUE(std::ranges::any_of(systemFiles(), [&](const std::string& path) {
      return equalIgnoringCase(path, systemFolder() + "\\" + name);
    })) << name;
}

}  // namespace
}  // namespace vorlent
