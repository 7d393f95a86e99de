#include "tap/TappedFiles.h"

#include <utility>

#include "recording/portTexts.h"

namespace vorlent {

using namespace recorded;

bool TappedNetworkFiles::exists(const std::string& path) {
  const bool there = inner_.exists(path);
  tap_.answer(Call::FileExists, there ? 1 : 0);
  return there;
}

NetworkContent TappedNetworkFiles::readUpTo(const std::string& path, std::size_t limit_bytes) {
  NetworkContent content = inner_.read(path, limit_bytes);
  const int kind = content ? 1 : content.tooLarge ? 2 : 0;
  tap_.answer(Call::FileRead, kind, content.value_or(""));
  return content;
}

bool TappedNetworkFiles::write(const std::string& path, const std::string& content) {
  const bool done = inner_.write(path, content);
  tap_.answer(Call::FileWrite, done ? 1 : 0);
  return done;
}

bool TappedNetworkFiles::remove(const std::string& path) {
  const bool done = inner_.remove(path);
  tap_.answer(Call::FileRemove, done ? 1 : 0);
  return done;
}

bool TappedPerformanceDb::open(const std::string& path) {
  const bool there = inner_.open(path);
  tap_.answer(Call::DatabaseOpen, there ? 1 : 0);
  return there;
}

PerformanceReading TappedPerformanceDb::read() {
  PerformanceReading reading = inner_.read();
  tap_.answer(Call::DatabaseRead, 0, performanceText(reading));
  return reading;
}

bool TappedOwnShare::publish(const std::string& shareName, const std::string& folder) {
  const bool done = inner_.publish(shareName, folder);
  tap_.answer(Call::PublishShare, done ? 1 : 0);
  return done;
}

ZipFiles::Done TappedZipFiles::told(Done done) {
  return [&tap = tap_, done = std::move(done)](const std::string& fault) {
    tap.answer(Call::ZipDone, 0, fault);
    done(fault);
  };
}

void TappedZipFiles::pack(const std::string& folder, const std::string& zip, Done done) {
  inner_.pack(folder, zip, told(std::move(done)));
}

void TappedZipFiles::unpack(const std::string& zip, const std::string& folder, Done done) {
  inner_.unpack(zip, folder, told(std::move(done)));
}

}  // namespace vorlent
