#pragma once

#include "platform/NetworkFiles.h"
#include "platform/OwnShare.h"
#include "platform/PerformanceDb.h"
#include "platform/ZipFiles.h"
#include "tap/Tap.h"

/// The ports behind which files and databases lie.
namespace vorlent {

class TappedNetworkFiles : public NetworkFiles {
 public:
  TappedNetworkFiles(NetworkFiles& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  bool exists(const std::string& path) override;
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;

 private:
  NetworkFiles& inner_;
  Tap& tap_;
};

class TappedPerformanceDb : public PerformanceDb {
 public:
  TappedPerformanceDb(PerformanceDb& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  bool open(const std::string& path) override;
  PerformanceReading read() override;

 private:
  PerformanceDb& inner_;
  Tap& tap_;
};

class TappedOwnShare : public OwnShare {
 public:
  TappedOwnShare(OwnShare& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  bool publish(const std::string& shareName, const std::string& folder) override;

 private:
  OwnShare& inner_;
  Tap& tap_;
};

class TappedZipFiles : public ZipFiles {
 public:
  TappedZipFiles(ZipFiles& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  void pack(const std::string& folder, const std::string& zip, Done done) override;
  void unpack(const std::string& zip, const std::string& folder, Done done) override;

 private:
  Done told(Done done);

  ZipFiles& inner_;
  Tap& tap_;
};

}  // namespace vorlent
