#include "share/support/Samba.h"

#include <fcntl.h>
#include <pwd.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>

#include "share/support/loopback.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

std::string ownName() {
  const passwd* const own = getpwuid(geteuid());
  if (own == nullptr) throw std::runtime_error("the user of this test has no name");
  return own->pw_name;
}

/// As `smbpasswd` writes it: the hash is that of the text "password".
std::string passwordLine(const std::string& user) {
  return user + ":" + std::to_string(geteuid()) + ":" + std::string(32, 'X') +
         ":8846F7EAEE8FB117AD06BDD830B7586C:[U          ]:LCT-00000001:\n";
}

}  // namespace

Samba::Samba() : port_(freeTcpPort()), user_(ownName()) {
  for (const std::string share : {"Tarnwick", "ReadOnly", "Private", "Vorlent"})
    std::filesystem::create_directory(folder / share);
  configure();
  start();
}

void Samba::configure() const {
  std::filesystem::create_directory(folder / "state");
  std::string text = "[global]\nserver role = standalone server\n";
  text += "interfaces = 127.0.0.1\nbind interfaces only = yes\n";
  text += "smb ports = " + std::to_string(port_) + "\ndisable netbios = yes\n";
  for (const std::string kind : {"lock directory", "state directory", "cache directory",
                                 "private dir", "pid directory", "ncalrpc dir"})
    text += kind + " = " + folder / "state" + "\n";
  text += "log file = " + folder / "log" + "\nload printers = no\nprinting = bsd\n";
  text += "printcap name = /dev/null\ndisable spoolss = yes\nrpc start on demand helpers = no\n";
  text += "guest account = " + user_ + "\nmap to guest = never\n";
  text += "passdb backend = smbpasswd:" + folder / "passwords" + "\n";
  text += "[Tarnwick]\npath = " + folder / "Tarnwick" + "\nguest ok = yes\nread only = no\n";
  text += "[ReadOnly]\npath = " + folder / "ReadOnly" + "\nguest ok = yes\nread only = yes\n";
  text += "[Private]\npath = " + folder / "Private" + "\nvalid users = " + user_ + "\n";
  text += "read only = no\n";
  text += "[Vorlent]\npath = " + folder / "Vorlent" + "\nguest ok = yes\n";
  folder.write("smb.conf", text);
  folder.write("passwords", passwordLine(user_));
}

void Samba::start() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const Descriptor input(ends[0]);
  alive_ = Descriptor(ends[1]);
  server_ = ChildProcess::start({"/usr/sbin/smbd", "--foreground", "--no-process-group",
                                 "--configfile=" + folder / "smb.conf"},
                                input.number(), -1);
  const auto decided = [this] { return isServed(port_) || server_->awaitEnd(0); };
  if (!server_ || !eventually(decided) || server_->awaitEnd(0))
    throw std::runtime_error("smbd does not serve: " + folder.read("log"));
}

void Samba::stop() {
  if (server_) kill(-server_->id(), SIGKILL);
  server_.reset();
}

void Samba::suspend() const { kill(-server_->id(), SIGSTOP); }

void Samba::resume() const { kill(-server_->id(), SIGCONT); }

}  // namespace vorlent
