// Flies the flights of docs/flights.md with other tuning keys than the shipped ones, or looks for
// better ones.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Tuning.h"

namespace {

using namespace vorlent;

constexpr const char* usage =
    "usage: vorlent-tuning [FLIGHT...] [KEY=VALUE...]\n"
    "       vorlent-tuning --missed [FLIGHT...]\n"
    "       vorlent-tuning --search SECONDS SEED [FLIGHT...] [KEY=VALUE...] KEY=LOW:HIGH...\n"
    "\n"
    "The first form prints every figure and the penalty: the mean, over all figures, of 0.3 times\n"
    "its share of the goal, or, beyond the goal, of 1 and the binary logarithm of that share.\n"
    "The second one prints the rows of tests/flights/missed.txt, each bound a quarter above the\n"
    "figure, half above it in rough air.\n"
    "The third one tries values between the limits and prints each better set. Keys that are not\n"
    "named are as shipped. FLIGHT is a part of the names to fly; without one all are flown.\n";

struct Range {
  std::string key;
  double low;
  double high;
};

struct Options {
  bool missed = false;
  double search_s = 0;
  unsigned seed = 0;
  Tuning tuning = tuningFrom(shippedTuning());
  std::vector<Range> ranges;
  std::vector<std::string> parts;
};

void takeKey(Options& options, const std::string& argument, std::size_t equals) {
  const std::string key = argument.substr(0, equals);
  const std::string value = argument.substr(equals + 1);
  if (!options.tuning.contains(key)) throw std::invalid_argument("there is no key " + key);
  const auto colon = value.find(':');
  if (colon == std::string::npos)
    options.tuning[key] = std::stod(value);
  else
    options.ranges.push_back(
        {key, std::stod(value.substr(0, colon)), std::stod(value.substr(colon + 1))});
}

Options optionsFrom(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const auto equals = arguments[i].find('=');
    if (arguments[i] == "--missed") {
      options.missed = true;
    } else if (arguments[i] == "--search") {
      options.search_s = std::stod(arguments.at(++i));
      options.seed = static_cast<unsigned>(std::stoul(arguments.at(++i)));
    } else if (equals != std::string::npos) {
      takeKey(options, arguments[i], equals);
    } else {
      options.parts.push_back(arguments[i]);
    }
  }
  return options;
}

std::vector<FlightCase> flightsNamed(const std::vector<std::string>& parts) {
  std::vector<FlightCase> flights = flightCases();
  const auto unwanted = [&parts](const FlightCase& flight) {
    return !parts.empty() && std::ranges::none_of(parts, [&flight](const std::string& part) {
      return flight.name.find(part) != std::string::npos;
    });
  };
  std::erase_if(flights, unwanted);
  return flights;
}

void show(const std::vector<FlightCase>& flights, const Tuning& tuning) {
  const std::string text = tuningText(tuning);
  MeanPenalty mean;
  for (const FlightCase& flight : flights) {
    std::printf("%s\n", flight.name.c_str());
    for (const Figure& figure : flight.fly(text)) {
      std::printf("  %-30s %10.4g %-7s goal %g%s\n", figure.what.c_str(), figure.value,
                  figure.unit.c_str(), figure.goal, figure.value > figure.goal ? "  missed" : "");
      mean.add(figure);
    }
  }
  std::printf("penalty %.4f\n", mean.value());
}

void showMissed(const std::vector<FlightCase>& flights, const Tuning& tuning) {
  const std::string text = tuningText(tuning);
  for (const FlightCase& flight : flights) {
    const double margin = flight.name.starts_with("rough") ? 1.5 : 1.25;
    for (const Figure& figure : flight.fly(text))
      if (figure.value > figure.goal)
        std::printf("%s | %s | %.3g\n", flight.name.c_str(), figure.what.c_str(),
                    figure.value * margin);
  }
}

/// Random sets at first; then mostly the best one so far with some of its keys moved a little.
class Search {
 public:
  Search(const Options& options, std::vector<FlightCase> flights)
      : options_(options), flights_(std::move(flights)), random_(options.seed) {}

  void run() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(options_.search_s);
    best_ = options_.tuning;
    lowest_ = penalty(flights_, best_);
    tell();
    for (int tries = 0; Clock::now() < end; ++tries) attempt(tries >= firstTries_);
  }

 private:
  void attempt(bool nearBest) {
    Tuning tuning = best_;
    for (const Range& range : options_.ranges)
      tuning[range.key] = nearBest ? moved(best_.at(range.key), range) : anywhere(range);
    const double now = penalty(flights_, tuning);
    if (now >= lowest_) return;
    lowest_ = now;
    best_ = tuning;
    tell();
  }

  double anywhere(const Range& range) {
    const double share = std::uniform_real_distribution<>()(random_);
    return rounded(range.low * std::pow(range.high / range.low, share));
  }

  double moved(double value, const Range& range) {
    if (std::uniform_real_distribution<>()(random_) < 0.5) return value;
    const double factor = std::exp(std::normal_distribution<>(0, 0.12)(random_));
    return rounded(std::clamp(value * factor, range.low, range.high));
  }

  /// Three digits are enough for a file that people read.
  static double rounded(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3g", value);
    return std::strtod(text, nullptr);
  }

  void tell() const {
    std::printf("%.4f", lowest_);
    for (const Range& range : options_.ranges)
      std::printf(" %s=%g", range.key.c_str(), best_.at(range.key));
    std::printf("\n");
    std::fflush(stdout);
  }

  static constexpr int firstTries_ = 8;
  const Options& options_;
  std::vector<FlightCase> flights_;
  std::mt19937 random_;
  Tuning best_;
  double lowest_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (!arguments.empty() && arguments[0] == "--help") {
      std::fputs(usage, stdout);
      return 0;
    }
    const Options options = optionsFrom(arguments);
    const std::vector<FlightCase> flights = flightsNamed(options.parts);
    if (options.missed)
      showMissed(flights, options.tuning);
    else if (options.search_s > 0)
      Search(options, flights).run();
    else
      show(flights, options.tuning);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vorlent-tuning: %s\n%s", error.what(), usage);
    return 2;
  }
}
