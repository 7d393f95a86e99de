#pragma once

#include <memory>
#include <string>

#include "core/Server.h"
#include "platform/EventLoop.h"
#include "platform/RecorderLink.h"
#include "tap/Tap.h"
#include "tap/TappedBus.h"
#include "tap/TappedDesk.h"
#include "tap/TappedEventLoop.h"
#include "tap/TappedFiles.h"
#include "tap/TappedNetwork.h"

namespace vorlent {

/// Records a server: stands between it and its ports, and tells what goes through them. The server
/// knows nothing of it. Outlives the server.
class Recorder {
 public:
  /// What is told is sent on so often: seldom, for each time two processes wake up, and often
  /// enough that a kill costs less than a second.
  static constexpr int SendPeriod_ms = 750;

  Recorder(const Ports& ports, RecorderLink& link, Tap::Clock clock);
  /// Sends the rest, which may take up to two seconds.
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// For the server.
  Ports ports();
  /// Tells what the recording is of. To be called once, before the server is made; `local_time` is
  /// "2026-11-22 13:16:00".
  void begin(const std::string& local_time, const std::string& programFolder);
  /// Tells what the server's operator sees from now on, and him what is wrong with the recording.
  void follow(Server& server);
  /// What the operator is about to do.
  void hand(const recorded::HandMoved& hand) { tap_.tell(hand); }

 private:
  Ports inner_;
  RecorderLink& link_;
  Tap tap_;
  TappedEventLoop eventLoop_{inner_.eventLoop, tap_};
  TappedOperator op_{inner_.op, tap_};
  TappedNetwork network_{inner_.network, tap_};
  TappedBus bus_{inner_.simulatorBus, tap_};
  TappedNetworkFiles networkFiles_{inner_.networkFiles, tap_};
  TappedPerformanceDb performanceDb_{inner_.performanceDb, tap_};
  TappedOwnShare ownShare_{inner_.ownShare, tap_};
  TappedRegional regional_{inner_.regional, tap_};
  TappedInstance instance_{inner_.programInstance, tap_};
  TappedControllers controllers_{inner_.controllers, tap_};
  TappedKeyboard keyboard_{inner_.keyboard, tap_};
  TappedSoundDevice soundDevice_{inner_.soundDevice, tap_};
  TappedDocuments documents_{inner_.documents, tap_};
  TappedFileChooser fileChooser_{inner_.fileChooser, tap_};
  TappedZipFiles zipFiles_{inner_.zipFiles, tap_};
  std::unique_ptr<Timer> sendTimer_;
};

}  // namespace vorlent
