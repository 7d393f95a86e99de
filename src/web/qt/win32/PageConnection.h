#pragma once

#include <boost/asio/any_io_executor.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <chrono>
#include <memory>
#include <optional>

#include "web/Access.h"
#include "web/PageHub.h"

namespace vorlent {

/// What all connections have in common.
struct PageSite {
  PageHub& hub;
  std::optional<Access> access = std::nullopt;  ///< without it nobody is let in
  int connections = 0;
};

using PageStream = boost::beast::basic_stream<boost::asio::ip::tcp, boost::asio::any_io_executor,
                                              boost::beast::simple_rate_policy>;
using PageHead = boost::beast::http::request<boost::beast::http::empty_body>;

/// A browser's connection that asks for files; it lives for as long as something is under way on
/// it.
class PageConnection : public std::enable_shared_from_this<PageConnection> {
 public:
  static constexpr int MostConnections = 128;
  static constexpr std::size_t BytesPerSecond = 16 * 1024;
  static constexpr std::uint32_t LongestHead_bytes = 8 * 1024;
  /// A connection that has not become a page's by then is cut off.
  static constexpr std::chrono::seconds LongestRequest{60};

  PageConnection(PageStream stream, PageSite& site);

  void start();

 private:
  void readHead();
  void answer(const PageHead& head);

  PageStream stream_;
  PageSite& site_;
  std::shared_ptr<void> counted_;
  boost::beast::flat_buffer buffer_;
  std::optional<boost::beast::http::request_parser<boost::beast::http::empty_body>> parser_;
};

}  // namespace vorlent
