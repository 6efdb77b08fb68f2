// Stands in for the fuzzer's own main: a fixed number of inputs of random bytes, the same each
// time.
#include <vector>

#include "fuzz/bytes.h"

// Arguments: how many inputs, and how long the longest may be.
int main(int, char** arguments) {
  std::mt19937 random(5);
  for (long inputs = std::atol(arguments[1]); inputs > 0; --inputs) {
    std::vector<std::uint8_t> bytes(random() % std::strtoul(arguments[2], nullptr, 10));
    for (std::uint8_t& byte : bytes)
      byte = static_cast<std::uint8_t>(random());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
}
