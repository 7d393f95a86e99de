#include "support/TestServer.h"

namespace vorlent {
namespace {

const std::string Ini =
    "; a cockpit in a test\r\n"
    "[Vorlent]\r\n"
    "Cockpit=737-700\r\n"
    "Port=5000\r\n"
    "Ip=\r\n"
    "Clients=2\r\n"
    "Joysticks=1\r\n"
    "JoysticksOn=0\r\n"
    "Polling=50\r\n"
    "SoundOn=False\r\n"
    "ShowTip=0\r\n"
    "IDSoundDevice=1\r\n"
    "AutoTQ=False\r\n"
    "FSOnTop=False\r\n"
    "FSMax=False\r\n"
    "WriteMcpOffsets=False\r\n";

const std::string SoundCfg = "60,1.2,95,40,0.05,90,80,70\r\n5,1,1,1,1\r\n";

}  // namespace

TestServer::TestServer(SoundDevice* player)
    : server({loop, op, network, bus, networkFiles, performanceDb, ownShare, regional, instance,
              controllers, keyboard, player != nullptr ? *player : soundDevice, documents, chooser,
              zipFiles},
             {folder.path(), {}}),
      form(*server.mainClient),
      store(server.store) {
  folder.write("Vorlent.ini", Ini);
  for (const std::string cockpit : {"737-700", "A-first"}) {
    folder.write("Cockpits/" + cockpit + "/sound.cfg", SoundCfg);
    folder.write("Cockpits/" + cockpit + "/Flaps.cfg", "1,2,5,10,15,25,30,40\r\n");
  }
}

void TestServer::start() {
  server.failureDomain.run([this] { server.main->Main(); });
}

void TestServer::greet(int slot, const std::string& interval_ms, const std::string& name,
                       std::uint16_t senderPort) {
  deliver(slot, "Connection on a b " + interval_ms + " " + name, {"127.0.0.1", senderPort});
}

bool TestServer::deliver(int slot, const std::string& text, const Endpoint& sender) {
  return network.deliver(static_cast<std::uint16_t>(store.BasePort + slot), sender, text);
}

std::string TestServer::log() const { return folder.read("log.txt"); }

void TestServer::configure(const std::string& key, const std::string& value) const {
  clsIniRw().WriteKey("Vorlent", key, value, folder / "Vorlent.ini");
}

}  // namespace vorlent
