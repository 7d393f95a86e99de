#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Documents.h"
#include "platform/FileChooser.h"
#include "platform/ZipFiles.h"

namespace vorlent {

/// Remembers what was to be shown, and gives the same result each time.
class FakeDocuments : public Documents {
 public:
  void open(const std::string& path, Done done) override {
    opened.push_back(path);
    done(result);
  }
  std::vector<std::string> opened;
  int result = HighestFault + 1;
};

/// Chooses what the test says.
class FakeFileChooser : public FileChooser {
 public:
  std::vector<std::string> drives() override { return theDrives; }
  std::optional<std::string> folder(const std::string& start) override { return chosen(start); }
  std::optional<std::string> zipToRead(const std::string& start) override { return chosen(start); }
  std::optional<std::string> zipToMake(const std::string& start) override { return chosen(start); }

  std::vector<std::string> theDrives;
  std::vector<std::string> starts;  ///< where he was asked to begin
  std::optional<std::string> choice;

 private:
  std::optional<std::string> chosen(const std::string& start) {
    starts.push_back(start);
    return choice;
  }
};

/// Zip work that ends when the test says so.
class FakeZipFiles : public ZipFiles {
 public:
  void pack(const std::string& folder, const std::string& zip, Done done) override {
    work = "pack " + folder + " to " + zip;
    end = std::move(done);
  }
  void unpack(const std::string& zip, const std::string& folder, Done done) override {
    work = "unpack " + zip;
    into = folder;
    end = std::move(done);
  }
  std::string work;  ///< what was asked for last
  std::string into;  ///< the folder that was to be made
  Done end;
};

}  // namespace vorlent
