// Decisions and texts made of the fuzzer's bytes, and what ends a run that found something.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

inline void require(bool holds, const char* what, const std::string& where = {}) {
  if (holds)
    return;
  std::cerr << "Does not hold: " << what << " " << where << "\n";
  std::abort();
}

inline void write(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// Used up, all numbers are 0: every loop must end on that.
class Bytes {
public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool empty() const { return size_ == 0; }
  unsigned below(std::size_t bound) {
    unsigned number = next();
    if (bound > 256)
      number = number * 256 + next();
    return static_cast<unsigned>(number % bound);
  }
  std::string rest() const { return {reinterpret_cast<const char*>(data_), size_}; }
  // A whole game, now and then an ended one, and half the time with a few small changes.
  std::string game() {
    const unsigned side = 5 + below(4), kinds = 11 + below(24), end = below(16);
    std::minstd_rand units(below(65536));
    std::string text;
    for (unsigned n = 0; n < side * side; ++n) {
      const auto unit = static_cast<unsigned>(units() % kinds);
      for (const unsigned field : {unit < 10 ? unit / 5 + 1 : 0, unit < 10 ? unit % 5 + 1 : 0,
                                   n / side * 1180 + 380, n % side * 1180 + 1340, n / side + 1})
        text += std::to_string(field) + ";";
      text += std::to_string(n % side + 1) + ";\r\n";
    }
    return changed(text + (end % 2 ? "2" : "1") + (end < 14 ? "\r\n" : "\r\n12\r\n"));
  }
  std::string changed(std::string text) {
    static const char* const pieces[] = {"",   ";",   "\r\n",   ",",   "\"", "-",    "0",
                                         " ",  "x",   "\n",     "255", "9;", "2",    "32767",
                                         "12", "1;2", "-32769", ".5",  "\t", "1e30", "\xF1;"};
    for (unsigned times = below(8); times > 4; --times) {
      const std::size_t place = below(text.size() + 1);
      text.replace(place, below(8) ? below(4) : text.size(), pieces[below(std::size(pieces))]);
    }
    return text;
  }

private:
  unsigned next() { return size_ == 0 ? 0U : (--size_, *data_++); }

  const std::uint8_t* data_;
  std::size_t size_;
};

} // namespace fuzz
