#include "recording/eventBytes.h"

#include <charconv>
#include <limits>
#include <type_traits>
#include <utility>

#include "base/text.h"

namespace vorlent::recorded {
namespace {

/// A block of the simulator interface has room for no more.
constexpr std::size_t MostOfARequest_bytes = 32768;

/// How many values an enumeration has.
constexpr std::uint64_t countOf(Call) { return Calls; }
constexpr std::uint64_t countOf(HandMoved::Deed) { return HandMoved::Deeds; }
constexpr std::uint64_t countOf(SessionChanged::What) { return 2; }

void put(std::string& bytes, const std::string& field) { putText(bytes, field); }

template <class T>
void put(std::string& bytes, T field) {
  if constexpr (std::is_enum_v<T>)
    putNumber(bytes, static_cast<std::uint64_t>(field));
  else if constexpr (std::is_signed_v<T>)
    putSigned(bytes, field);
  else
    putNumber(bytes, field);
}

void take(ByteReader& bytes, std::string& field) { field = bytes.text(); }

template <class T>
void take(ByteReader& bytes, T& field) {
  if constexpr (std::is_enum_v<T>) {
    field = static_cast<T>(bytes.numberUpTo(countOf(T{}) - 1));
  } else if constexpr (std::is_signed_v<T>) {
    const std::int64_t number = bytes.signedNumber();
    if (!std::in_range<T>(number)) refuseBytes();
    field = static_cast<T>(number);
  } else if constexpr (std::is_same_v<T, bool>) {
    field = bytes.numberUpTo(1) != 0;
  } else {
    field = static_cast<T>(bytes.numberUpTo(std::numeric_limits<T>::max()));
  }
}

template <class Struct>
void putFields(std::string& bytes, const Struct& from) {
  std::apply([&bytes](const auto&... field) { (put(bytes, field), ...); }, Struct::fields(from));
}

template <class Struct>
void takeFields(ByteReader& bytes, Struct& into) {
  std::apply([&bytes](auto&... field) { (take(bytes, field), ...); }, Struct::fields(into));
}

/// The alternative of this number, with nothing in it yet.
template <std::size_t... Numbers>
What emptyOf(std::uint64_t kind, std::index_sequence<Numbers...>) {
  What what;
  ((kind == Numbers ? static_cast<void>(what.emplace<Numbers>()) : void()), ...);
  return what;
}

void expectToFit(const Exchanged& exchange) {
  const bool hasRead = exchange.answered && exchange.damaged.empty();
  const std::size_t read_bytes = hasRead ? sizeOf(*exchange.request, false) : 0;
  if (exchange.written.size() != sizeOf(*exchange.request, true) ||
      exchange.read.size() != read_bytes)
    refuseBytes();
}

}  // namespace

void putEvent(std::string& bytes, const Event& event, std::int64_t before_us,
              std::uint64_t request) {
  putNumber(bytes, event.what.index());
  putNumber(bytes, static_cast<std::uint64_t>(event.time_us - before_us));
  if (std::holds_alternative<Exchanged>(event.what)) putNumber(bytes, request);
  std::visit([&bytes](const auto& what) { putFields(bytes, what); }, event.what);
}

Event takeEvent(ByteReader& bytes, std::int64_t before_us, const RequestOf& requestOf,
                std::uint64_t& request) {
  constexpr std::size_t Kinds = std::variant_size_v<What>;
  constexpr std::uint64_t LongestPause_us = std::uint64_t{1} << 40;  // 12 days
  const std::uint64_t kind = bytes.numberUpTo(Kinds - 1);
  Event event{before_us + static_cast<std::int64_t>(bytes.numberUpTo(LongestPause_us)),
              emptyOf(kind, std::make_index_sequence<Kinds>())};
  auto* exchange = std::get_if<Exchanged>(&event.what);
  if (exchange != nullptr) {
    request = bytes.number();
    exchange->request = requestOf(request);
    if (!exchange->request) refuseBytes();
  }
  std::visit([&bytes](auto& what) { takeFields(bytes, what); }, event.what);
  if (exchange != nullptr) expectToFit(*exchange);
  return event;
}

void putRequest(std::string& bytes, const Request& request) {
  putNumber(bytes, request.size());
  for (const Operation& operation : request) putFields(bytes, operation);
}

Request takeRequest(ByteReader& bytes) {
  Request request(bytes.numberUpTo(MostOfARequest_bytes));
  std::size_t room_bytes = MostOfARequest_bytes;
  for (Operation& operation : request) {
    takeFields(bytes, operation);
    if (operation.size_bytes > room_bytes) refuseBytes();
    room_bytes -= operation.size_bytes;
  }
  return request;
}

std::string textOf(const Request& request) {
  constexpr std::size_t Digits = 4;
  std::string text;
  for (const Operation& operation : request) {
    const std::string offset = hexText(operation.offset);
    if (!text.empty()) text += ' ';
    text += operation.write ? 'w' : 'r';
    if (offset.size() < Digits) text.append(Digits - offset.size(), '0');
    text += offset + ":" + std::to_string(operation.size_bytes);
  }
  return text;
}

Request requestOf(const std::string& text) {
  Request request;
  std::size_t room_bytes = MostOfARequest_bytes;
  const char* at = text.data();
  const char* end = at + text.size();
  const auto number = [&](std::uint32_t& into, int base) {
    const auto [stop, error] = std::from_chars(at, end, into, base);
    if (error != std::errc()) refuseBytes();
    at = stop;
  };
  while (at != end) {
    if (!request.empty() && *at++ != ' ') refuseBytes();
    if (at == end || (*at != 'r' && *at != 'w')) refuseBytes();
    Operation& operation = request.emplace_back();
    operation.write = *at++ == 'w';
    number(operation.offset, 16);
    if (at == end || *at++ != ':') refuseBytes();
    number(operation.size_bytes, 10);
    if (operation.size_bytes > room_bytes) refuseBytes();
    room_bytes -= operation.size_bytes;
  }
  return request;
}

std::size_t sizeOf(const Request& request, bool writes) {
  std::size_t size_bytes = 0;
  for (const Operation& operation : request)
    if (operation.write == writes) size_bytes += operation.size_bytes;
  return size_bytes;
}

}  // namespace vorlent::recorded
