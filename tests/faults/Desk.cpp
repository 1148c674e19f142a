#include "Desk.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <vector>

#include "scripts/Checksum.h"
#include "scripts/SetupOptions.h"
#include "shell/Lifecycle.h"
#include "text/Text.h"

namespace dialwright {

namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string projectFile(const std::string& path) {
  std::ifstream file(std::string(DIALWRIGHT_SOURCE_DIR) + "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const std::size_t end = text.find(lineEnd);
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + lineEnd.size());
  }
}

/// Which section of a save writes a line: the keys that one section writes share their beginnings.
std::string_view sectionOf(std::string_view line) {
  if (line.starts_with("ORDINAL_")) line.remove_prefix(8);
  constexpr std::pair<std::string_view, std::string_view> sections[] = {
      {"MENU_", "main"},      {"HEADER_", "header"},  {"BODY_", "body"},
      {"FOOTER_", "footer"},  {"MSGMENU_", "after"},  {"RECEIPT_", "after"},
      {"GLOBAL_", "globals"}, {"MAIN_", "setup"},     {"MESSAGESETTINGS_", "setup"}};
  for (const auto& [start, section] : sections)
    if (line.starts_with(start)) return section;
  return "none";
}

void swapKeys(KeyGrid& grid) {
  int first = 0;
  for (int row = 1; row < grid.Rows(); ++row) {
    if (grid.Text(row, Column::KeyAssignment).empty()) continue;
    if (first == 0) {
      first = row;
      continue;
    }
    const std::string key = grid.Text(row, Column::KeyAssignment);
    grid.SetText(row, Column::KeyAssignment, grid.Text(first, Column::KeyAssignment));
    grid.SetText(first, Column::KeyAssignment, key);
    return;
  }
}

void saved(Desk& desk) {
  desk.start();
  desk.save();
}

void savedAndEdited(Desk& desk, FileStore&) {
  saved(desk);
  desk.edit();
}

void reset(Desk& desk) {
  desk.messages.answers = {MsgBoxAnswer::Yes};
  desk.form().mnuResetKeysToAlternateKeyMappingN.Click();
}

void restore(Desk& desk) { desk.form().mnuRestoreScripts.Click(); }

void makeCard(Desk& desk) { desk.form().mnuWKWStandard.Click(); }

constexpr Job jobs[] = {
    {"save", savedAndEdited, [](Desk& desk) { desk.save(); }, [](Desk& desk) { desk.save(); }},
    {"save with documents",
     [](Desk& desk, FileStore&) {
       desk.setDocuments(1);
       saved(desk);
       desk.edit();
     },
     [](Desk& desk) { desk.save(); }, [](Desk& desk) { desk.save(); }},
    {"restore",
     [](Desk& desk, FileStore& disk) {
       saved(desk);
       for (const std::string_view name : slotScripts) {
         const std::string path = std::string(scriptFolder) + std::string(name);
         disk.replace(path, "[MACROS]\r\n" + disk.read(path));
       }
     },
     restore, restore},
    {"preset", [](Desk& desk, FileStore&) { saved(desk); }, reset,
     [](Desk& desk) {
       reset(desk);
       desk.save();
     }},
    {"reference card", [](Desk& desk, FileStore&) { saved(desk); }, makeCard, makeCard},
    {"start", [](Desk&, FileStore&) {},
     [](Desk& desk) { desk.start(); },
     [](Desk& desk) {
       LoadKeyMapInfo(desk.form());
       desk.edit();
       desk.save();
     }},
};

}  // namespace

std::span<const Job> Jobs() { return jobs; }

void LayOut(const std::function<void(std::string_view, std::string_view)>& put) {
  const std::string image = "sandbox/merid-7.0-2.0/drive_c/Telhost/Localize/Scripts/";
  const auto script = [&](std::string_view name) {
    put(std::string(scriptFolder) + std::string(name), projectFile(image + std::string(name)));
  };
  for (const std::string_view name : slotScripts) script(name);
  script("SubMsgPlay_AlternateN.cde");
  const std::string folder(programFolder);
  put(folder + "Blank_Map_Template_50.htm",
      "<p>%CONV_NAME%\r\n%MENU_NEW% %BODY_DELETE% %MSGMENU_SAVE% %MAIN_GREETINGS%\r\n");
  put(folder + R"(XMLShots\StandardKeyMap.XML)", projectFile("program/XMLShots/StandardKeyMap.XML"));
  put(folder + R"(PDFFoldoutBuilder\FBuilder.class)", "");
}

std::unique_ptr<ScriptChecksumComponent> Desk::Checksums::CreateObject() {
  struct Component : ScriptChecksumComponent {
    explicit Component(Checksums& theOwner) : owner(theOwner) {}
    std::int32_t CalculateFileChecksum(std::int32_t, std::string_view path) override {
      struct Work {
        explicit Work(FaultyFiles* faulty) : files(faulty) { set(true); }
        ~Work() { set(false); }
        void set(bool atWork) const {
          if (files != nullptr) files->componentAtWork = atWork;
        }
        FaultyFiles* files;
      };
      const Work work(owner.watched);
      return scriptChecksum(owner.store.read(path));
    }
    Checksums& owner;
  };
  return std::make_unique<Component>(*this);
}

Desk::Desk(FileStore& store, FaultyFiles* faulty)
    : checksums(store, faulty),
      languages(store, 1033),
      program(Services{store, registry, clock, processes, messages, checksums, languages, help},
              "C:\\Dialwright", "Dialwright") {
  registry.set("Software\\Quillon", "Version Number", RegistryValue::doubleWord(0x00070000));
  registry.set("Software\\Quillon", "Build Number", RegistryValue::doubleWord(0x00020000));
  registry.set("SOFTWARE\\Quillon\\Telhost\\1.0", "Root Path",
               RegistryValue::text("C:\\Telhost\\"));
}

void Desk::start() {
  try {
    Form_Load(form());
  } catch (const EndProgram&) {
    printer.line("ended");
  }
}

void Desk::edit() {
  for (KeyGrid& grid : form().gridKeyMap) swapKeys(grid);
  for (CheckBox* box : {&form().chkMAIN_GREETINGS, &form().chkMESSAGE_FAX})
    box->SetValue(1 - box->Value());
}

void Desk::save() {
  messages.answers = {MsgBoxAnswer::Yes};
  form().cmdSave.Enabled = true;
  form().cmdSave.Click();
}

void Desk::setDocuments(int value) {
  form().chkGenerateHelp.SetValue(value);
  form().chkGeneratePDF.SetValue(value);
}

std::string FaultOfScript(std::string_view before, std::string_view after, std::string_view found) {
  const auto oldLines = linesOf(before), newLines = linesOf(after), lines = linesOf(found);
  if (lines.size() != oldLines.size() || lines.size() != newLines.size())
    return std::to_string(lines.size()) + " lines in place of " + std::to_string(newLines.size());
  std::map<std::string_view, std::set<bool>> written;  // by section: has it new lines, old lines
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (IsChecksumLine(lines[i]) && IsChecksumLine(oldLines[i])) continue;
    if (lines[i] != oldLines[i] && lines[i] != newLines[i])
      return "neither old nor new: " + std::string(lines[i]);
    if (oldLines[i] != newLines[i]) written[sectionOf(lines[i])].insert(lines[i] == newLines[i]);
  }
  for (const auto& [section, states] : written)
    if (states.size() > 1) return "half written: " + std::string(section);
  return {};
}

bool ChecksumFits(std::string_view script) {
  const std::string line = "#CRC " + strChecksumText(scriptChecksum(script));
  return std::ranges::all_of(linesOf(script), [&](std::string_view each) {
    return !IsChecksumLine(each) || each == line;
  });
}

bool HasNewLines(std::string_view before, std::string_view after, std::string_view found) {
  // A key that is made anew has no blank before its equals sign.
  const auto spelled = [](std::string_view text) {
    std::set<std::string> lines;
    for (const std::string_view line : linesOf(text)) lines.insert(ReplaceAll(line, " ", ""));
    return lines;
  };
  const auto have = spelled(found), had = spelled(before);
  return std::ranges::all_of(spelled(after), [&](const std::string& line) {
    return had.contains(line) || have.contains(line) || IsChecksumLine(line);
  });
}

}  // namespace dialwright
