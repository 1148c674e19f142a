#include "Desk.h"

#include "Server.h"
#include "scripts/SetupOptions.h"
#include "shell/Lifecycle.h"

namespace dialwright {

namespace {

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
       desk.form().chkGenerateHelp.SetValue(1);
       desk.form().chkGeneratePDF.SetValue(1);
       saved(desk);
       desk.edit();
     },
     [](Desk& desk) { desk.save(); }, [](Desk& desk) { desk.save(); }},
    {"restore",
     [](Desk& desk, FileStore& disk) {
       saved(desk);
       for (const std::string_view name : slotScripts) {
         const std::string path = Server::script(name);
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
    {"start", [](Desk&, FileStore&) {}, [](Desk& desk) { desk.start(); },
     [](Desk& desk) {
       LoadKeyMapInfo(desk.form());
       desk.edit();
       desk.save();
     }},
};

}  // namespace

std::span<const Job> Jobs() { return jobs; }

std::unique_ptr<ScriptChecksumComponent> Desk::Checksums::CreateObject() {
  struct Component : ScriptChecksumComponent {
    explicit Component(Checksums& theOwner) : owner(theOwner) {}
    std::int32_t CalculateFileChecksum(std::int32_t, std::string_view path) override {
      const auto tell = [this](bool atWork) {
        if (owner.watched != nullptr) owner.watched->componentAtWork = atWork;
      };
      tell(true);
      try {
        const std::int32_t checksum = scriptChecksum(owner.store.read(path));
        tell(false);
        return checksum;
      } catch (const RuntimeFailure&) {
        tell(false);
        throw;
      }
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

}  // namespace dialwright
