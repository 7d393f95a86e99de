#include <exception>
#include <filesystem>
#include <iostream>

#include "support/measure.h"

int main(int /*argumentCount*/, char** arguments) {
  try {
    vorlent::measure();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << std::filesystem::path(arguments[0]).filename().string() << ": " << error.what()
              << "\n";
    return 1;
  }
}
