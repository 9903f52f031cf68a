// Whatever a level file holds, its records are read to their end or refused with their number and field.
#include "levels/level_file.h"
#include "tests/fuzz/require.h"

using namespace korvane;

namespace {

constexpr int kConverted = 4;  // records, each by itself: refusing numbers is slow under the sanitizers

/// Every number of a record, each of which may be refused.
void Convert(const LevelRecord& record) {
  const auto refused = [&](auto number, int field) {
    try {
      number();
    } catch (const LevelError& error) {
      fuzz::Require(error.Record == record.Number() && error.Field == field, "errors tell their place");
    }
  };
  refused([&] { record.Top(); }, 1);
  refused([&] { record.Left(); }, 2);
  refused([&] { record.Height(); }, 3);
  refused([&] { record.Width(); }, 4);
  refused([&] { record.Type(); }, 5);
  refused([&] { record.TypeIs(20); }, 5);
  refused([&] { record.BlinkingType(); }, 2);
  refused([&] { fuzz::Require(record.BlinkInterval() >= 500, "blinks no faster than allowed"); }, 3);
  refused([&] { record.BarredBonus(); }, 4);
  record.Blinks();
  record.IsRule();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LevelReader reader(fuzz::Text(data, size));
  int read = 0;
  try {
    while (!reader.AtEnd()) {
      const LevelRecord record = reader.Next();
      fuzz::Require(record.Number() == ++read, "records are counted");
      if (read <= kConverted) Convert(record);
    }
  } catch (const LevelError& error) {
    fuzz::Require(error.Record == read + 1 && error.Field >= 2 && reader.AtEnd(),
                  "only the end cuts a record");
  }
  return 0;
}
