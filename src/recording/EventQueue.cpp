#include "recording/EventQueue.h"

#include <utility>

#include "platform/RecorderLink.h"
#include "recording/EventStream.h"
#include "recording/eventBytes.h"

namespace vorlent {

using namespace recorded;

void EventQueue::add(const Event& event) {
  if (waiting_bytes() > capacity_bytes_) {
    ++dropped_;
    flush();
    return;
  }
  if (dropped_ > 0) put({event.time_us, Dropped{std::exchange(dropped_, 0)}});
  put(event);
  if (waiting_bytes() >= Portion_bytes) flush();
}

void EventQueue::put(const Event& event) {
  const auto* exchange = std::get_if<Exchanged>(&event.what);
  const std::uint64_t request = exchange != nullptr ? numberOf(exchange->request) : 0;
  putEvent(frame_, event, last_us_, request);
  putFrame(EventFrame);
  last_us_ = event.time_us;
}

std::uint64_t EventQueue::numberOf(const std::shared_ptr<const Request>& request) {
  if (request == lastRequest_) return lastNumber_;
  const auto [found, isNew] = requests_.try_emplace(*request, requests_.size() + 1);
  if (isNew) {
    putRequest(frame_, *request);
    putFrame(RequestFrame);
  }
  lastRequest_ = request;
  return lastNumber_ = found->second;
}

void EventQueue::putFrame(char kind) {
  putNumber(bytes_, frame_.size() + 1);
  bytes_ += kind;
  bytes_ += frame_;
  frame_.clear();
}

void EventQueue::flush() {
  if (waiting_bytes() == 0) return;
  sent_ += link_.send(std::string_view(bytes_).substr(sent_));
  if (sent_ < bytes_.size() && sent_ < capacity_bytes_) return;
  bytes_.erase(0, sent_);
  sent_ = 0;
}

void EventQueue::end() {
  if (dropped_ > 0) put({last_us_, Dropped{std::exchange(dropped_, 0)}});
  link_.end(std::string_view(bytes_).substr(sent_));
}

}  // namespace vorlent
