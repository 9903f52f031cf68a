// korvane-measure beats|glide|hand [VALUE...]: what only a clock tells about the game, see measure.h.
#include <exception>
#include <iostream>
#include <map>
#include <string_view>

#include "tools/measure/measure.h"

int main(int count, char** arguments) {
  const std::map<std::string_view, void (*)(measure::Words)> verbs{
      {"beats", measure::Beats}, {"glide", measure::Glide}, {"hand", measure::Hand}};
  const auto verb = verbs.find(count > 1 ? arguments[1] : "");
  if (verb == verbs.end()) {
    std::cerr << "korvane-measure beats [SECONDS] | glide [--window] [SECONDS] | hand [COUNT]\n";
    return 2;
  }
  try {
    verb->second(measure::Words(arguments + 2, std::size_t(count - 2)));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "korvane-measure: " << error.what() << '\n';
    return 1;
  }
}
