#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "web/Access.h"

/// What is answered to a browser that asks for the page, whichever library brings the request.
namespace vorlent {

/// Where browsers connect to the hub.
constexpr const char* LivePath = "/live";

struct PageFile {
  std::string type;  ///< for "Content-Type"
  std::string content;
};
/// A file of the page by its path, "/" being its beginning.
using PageFiles = std::function<std::optional<PageFile>(const std::string& path)>;

struct PageRequest {
  bool isGet = false;
  std::string path;
  std::string token;  ///< of the query
  Access::Caller caller;
};

struct PageAnswer {
  int status = 200;  ///< of HTTP
  PageFile body;
  std::vector<std::pair<std::string, std::string>> headers = {};
};

/// Without an `access` nobody is let in.
PageAnswer answerTo(const PageRequest& request, const std::optional<Access>& access,
                    const PageFiles& files);

}  // namespace vorlent
