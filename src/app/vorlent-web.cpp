// The cockpit in the browser: a display whose page other machines can open.

#include <QCoreApplication>
#include <optional>
#include <string>

#include "app/EnoughDescriptors.h"
#include "base/RuntimeError.h"
#include "base/Terminal.h"
#include "base/print.h"
#include "base/printable.h"
#include "commandline/CommandLineEnd.h"
#include "display/DisplayClient.h"
#include "display/serverSettings.h"
#include "platform/qt/HostAddresses.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/Signals.h"
#include "web/Access.h"
#include "web/PageHub.h"
#include "web/PlanWatch.h"
#include "web/WebOptions.h"
#include "web/qrText.h"
#include "web/qt/PageServer.h"

namespace {

using namespace vorlent;

/// Lets browsers in and says where the page is.
void open(PageServer& server, const WebOptions& options, Network& network) {
  const std::string token = isLoopback(options.listen) ? "" : randomToken();
  server.admit(Access(server.port(), token));
  const std::string host = options.listen == "0.0.0.0" ? network.localIp() : options.listen;
  const std::string page = "http://" + host + ":" + std::to_string(server.port()) + "/" +
                           (token.empty() ? "" : "?token=" + token);
  print("page: " + page + "\n");
  if (!token.empty() && outputIsTerminal()) print(qrText(page));
}

int run(int argc, char** argv, const WebOptions& options) {
  expectDescriptors("vorlent-web");
  QCoreApplication application(argc, argv);
  QtEventLoop loop;
  QtNetwork network;
  std::optional<DisplayClient> client;
  PageHub hub(loop,
              [&client](std::span<const Command> commands) { return client->send(commands); });
  client.emplace(loop, network,
                 serverSettings({options.host, options.port, options.interval_ms, options.name},
                                hostAddresses(options.host), network),
                 DisplayClient::Events{[&hub](const Record& record) { hub.show(record); },
                                       [&hub](const GreetingReply& reply) { hub.show(reply); },
                                       [&hub](const std::string& notice) {
                                         print(printable(notice) + "\n");
                                         hub.showNotice(notice);
                                       }});
  PageServer server(options.listen, options.webPort, hub);
  open(server, options, network);
  std::optional<PlanWatch> plan;
  if (!options.share.empty())
    plan.emplace(loop, options.share,
                 [&hub](const std::string& message) { hub.showPlan(message); });
  if (plan) plan->start();
  const Signals termination([&loop](int) { loop.end(0); });
  client->start();
  return loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv, readWebOptions(argumentsOf(argc, argv)));
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const RuntimeError& error) {
    printError("vorlent-web: " + error.description() + "\n");
    return 1;
  }
}
