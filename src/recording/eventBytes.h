#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "recording/Bytes.h"
#include "recording/Event.h"

/// Events as bytes: the number of their kind, the time since `before_us`, and their fields. Of an
/// exchange the number of its request stands in the place of the request.
namespace vorlent::recorded {

/// `request` is the request's number, which other events have no use for.
void putEvent(std::string& bytes, const Event& event, std::int64_t before_us,
              std::uint64_t request = 0);

/// Gives the request of a number; null where there is none, which counts as damage.
using RequestOf = std::function<std::shared_ptr<const Request>(std::uint64_t number)>;

/// Raises RuntimeError InputPastEnd for bytes that are no event. Of an exchange, `written` and
/// `read` fit the request; `read` is empty where nobody answered, or it is damaged. `request` gets
/// the request's number then.
Event takeEvent(ByteReader& bytes, std::int64_t before_us, const RequestOf& requestOf,
                std::uint64_t& request);

void putRequest(std::string& bytes, const Request& request);
/// Raises as takeEvent(), also where a request is longer than the interface lets one be.
Request takeRequest(ByteReader& bytes);

/// "r0560:8 w0BC8:2", as the file has it.
std::string textOf(const Request& request);
/// Raises as takeRequest().
Request requestOf(const std::string& text);

/// How many bytes all reads of it have together, or all writes.
std::size_t sizeOf(const Request& request, bool writes);

}  // namespace vorlent::recorded
