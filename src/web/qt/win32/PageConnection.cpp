#include "web/qt/win32/PageConnection.h"

#include <QUrl>
#include <QUrlQuery>
#include <boost/beast/websocket/rfc6455.hpp>
#include <utility>

#include "web/pageAnswers.h"
#include "web/qt/pageFiles.h"
#include "web/qt/win32/LivePage.h"

namespace vorlent {
namespace {

namespace http = boost::beast::http;
using Fault = boost::beast::error_code;
using Answer = http::response<http::string_body>;

PageRequest readRequest(const PageHead& head) {
  const auto field = [&head](http::field name) { return std::string(head[name]); };
  const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(std::string(head.target())));
  return {head.method() == http::verb::get,
          url.path().toStdString(),
          QUrlQuery(url).queryItemValue("token").toStdString(),
          {field(http::field::host), field(http::field::origin), field(http::field::cookie)}};
}

std::shared_ptr<Answer> written(const PageAnswer& answer, const PageHead& head, bool keepAlive) {
  auto result = std::make_shared<Answer>(http::int_to_status(static_cast<unsigned>(answer.status)),
                                         head.version());
  result->set(http::field::content_type, answer.body.type);
  for (const auto& [name, value] : answer.headers) result->set(name, value);
  result->keep_alive(keepAlive);
  result->body() = answer.body.content;
  result->prepare_payload();
  return result;
}

}  // namespace

PageConnection::PageConnection(PageStream stream, PageSite& site)
    : stream_(std::move(stream)),
      site_(site),
      counted_(&++site.connections, [](int* count) { --*count; }) {}

void PageConnection::start() {
  stream_.rate_policy().read_limit(BytesPerSecond);
  stream_.expires_after(LongestRequest);
  readHead();
}

void PageConnection::readHead() {
  parser_.emplace();
  parser_->header_limit(LongestHead_bytes);
  http::async_read_header(stream_, buffer_, *parser_,
                          [self = shared_from_this()](Fault fault, std::size_t) {
                            if (!fault) self->answer(self->parser_->get());
                          });
}

void PageConnection::answer(const PageHead& head) {
  const PageRequest request = readRequest(head);
  const bool isLive = request.path == LivePath;
  if (isLive && boost::beast::websocket::is_upgrade(head)) {
    const bool may =
        site_.access && site_.access->mayConnect(request.caller) == Access::Verdict::Granted;
    std::make_shared<LivePage>(std::move(stream_), site_.hub, std::move(counted_))
        ->accept(head, may);
    return;
  }
  // What follows a head that announces more is not read.
  const auto answer =
      written(isLive ? PageAnswer{426, {}} : answerTo(request, site_.access, pageFile), head,
              head.keep_alive() && parser_->is_done());
  http::async_write(stream_, *answer,
                    [self = shared_from_this(), answer](Fault fault, std::size_t) {
                      if (!fault && answer->keep_alive()) self->readHead();
                    });
}

}  // namespace vorlent
