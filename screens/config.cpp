#include "screens/config.h"

#include <iostream>

#include "stage/files/path_text.h"
#include "stage/files/profile.h"

namespace korvane {

std::string LeIni(std::string_view section, std::string_view key, const std::filesystem::path& file) {
  constexpr std::size_t kBuffer = 255;
  const std::string value = stage::GetPrivateProfileStringA(section, key, "", kBuffer, file);
  return value.substr(0, value.find('\0'));
}

void GravaIni(std::string_view section, std::string_view key, std::string_view value,
              const std::filesystem::path& file) {
  try {
    stage::WritePrivateProfileStringA(section, key, value, file);
  } catch (const stage::RuntimeError&) {
    std::error_code error;
    if (!std::filesystem::exists(file.parent_path(), error)) return;
    std::cerr << "korvane: cannot write " << stage::TextOf(file) << "; the speed holds for this run only\n";
  }
}

}  // namespace korvane
