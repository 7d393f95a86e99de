#include "tap/Recorder.h"

#include <utility>

#include "core/frmMainClient.h"
#include "tap/programFiles.h"

namespace vorlent {

Recorder::Recorder(const Ports& ports, RecorderLink& link, Tap::Clock clock)
    : inner_(ports), link_(link), tap_(link, std::move(clock)) {}

Recorder::~Recorder() { tap_.end(); }

Ports Recorder::ports() {
  return {eventLoop_,     op_,          network_,   bus_,         networkFiles_,
          performanceDb_, ownShare_,    regional_,  instance_,    controllers_,
          keyboard_,      soundDevice_, documents_, fileChooser_, zipFiles_};
}

void Recorder::begin(const std::string& local_time, const std::string& programFolder) {
  tap_.tell(recorded::Started{VORLENT_VERSION, local_time});
  for (const recorded::FileKept& file : programFiles(programFolder)) tap_.tell(file);
  tap_.flush();
}

void Recorder::follow(Server& server) {
  StatusBar& bar = server.mainClient->sbStatusBar;
  bar.addView([this, &bar](int panel) {
    tap_.tell(recorded::StatusShown{static_cast<std::uint8_t>(panel), bar.panelText(panel)});
  });
  sendTimer_ = inner_.eventLoop.createTimer(server.failureDomain.guarded([this, &server] {
    tap_.flush();
    if (const auto news = link_.news()) server.mainClient->SetStatusText(1, *news);
  }));
  sendTimer_->start(SendPeriod_ms);
}

}  // namespace vorlent
