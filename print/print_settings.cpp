#include "print/print_settings.h"

#include <array>

#include "base/text.h"

namespace quorvane {
namespace {

constexpr std::array<std::string_view, 3> kPapers = {"Letter", "Legal", "A4"};
constexpr int kDefaultFontSize = 12;
constexpr int kColumnsOfBadValue = 3;

int ColumnsOf(std::string_view value) {
  const bool good = value.size() == 1 && value[0] >= '1' && value[0] <= '0' + kMaxColumns;
  return good ? value[0] - '0' : kColumnsOfBadValue;
}

bool IsFontSize(int size) {
  return size >= kMinFontSize && size <= kMaxFontSize;
}

}  // namespace

std::optional<Paper> PaperOfName(std::string_view name) {
  for (size_t i = 0; i < kPapers.size(); ++i) {
    if (kPapers[i] == name) {
      return static_cast<Paper>(i);
    }
  }
  return std::nullopt;
}

std::string_view NameOf(Paper paper) {
  return kPapers[static_cast<size_t>(paper)];
}

PrintSettings ReadPrintSettings(const SettingsStore& store) {
  PrintSettings settings;
  settings.columns = ColumnsOf(GetSetting(store, Setting::PrinterColumns));
  const std::string size = GetSetting(store, Setting::FontSize);
  int number = 0;
  // Exactly the texts "6" to "25".
  if (ParseInteger(size, number) && IsFontSize(number) && std::to_string(number) == size) {
    settings.fontSize = number;
  }
  settings.fontName = GetSetting(store, Setting::FontName);
  settings.italic = IsYes(GetSetting(store, Setting::Italic));
  settings.paperName = GetSetting(store, Setting::PaperSize);
  settings.landscape = GetSetting(store, Setting::PrinterOrientation) == "Landscape";
  return settings;
}

PrintSettings ReadSetupSettings(SettingsStore& store) {
  PrintSettings settings;
  settings.columns = ColumnsOf(GetSettingWithOtherDefault(store, Setting::PrinterColumns));
  SaveSetting(store, Setting::PrinterColumns, std::to_string(settings.columns));
  int number = 0;
  settings.fontSize =
      ParseInteger(GetSetting(store, Setting::FontSize), number) && IsFontSize(number) ? number : kDefaultFontSize;
  SaveSetting(store, Setting::FontSize, std::to_string(settings.fontSize));
  settings.fontName = GetSetting(store, Setting::FontName);
  SaveSetting(store, Setting::FontName, settings.fontName);
  settings.italic = IsYes(GetSetting(store, Setting::Italic));
  SaveYesNo(store, Setting::Italic, settings.italic);
  const std::string paper = GetSetting(store, Setting::PaperSize);
  settings.paperName = PaperOfName(paper) ? paper : std::string(NameOf(Paper::Letter));
  SaveSetting(store, Setting::PaperSize, settings.paperName);
  settings.landscape = GetSetting(store, Setting::PrinterOrientation) == "Landscape";
  SaveSetting(store, Setting::PrinterOrientation, settings.landscape ? "Landscape" : "Portrait");
  return settings;
}

std::string UpdatedPrintSettingsText(const PrintSettings& settings, std::string_view printer) {
  return "Updated print settings:" + std::string(settings.landscape ? "O=Land" : "O=Port") +
         "/C=" + std::to_string(settings.columns) + (settings.italic ? "/I=Yes" : "/I=No") + "/F=" + settings.fontName +
         "/S=" + std::to_string(settings.fontSize) + "/N=" + std::string(printer) + "/P=" + settings.paperName;
}

}  // namespace quorvane
