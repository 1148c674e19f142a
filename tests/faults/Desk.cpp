#include "Desk.h"

#include "shell/Lifecycle.h"

namespace dialwright {

namespace {

void saved(Desk& desk) {
  desk.start();
  desk.save();
}

void savedAndEdited(Desk& desk) {
  saved(desk);
  desk.edit();
}

void save(Desk& desk) { desk.save(); }

void reset(Desk& desk) {
  desk.messages.answers = {MsgBoxAnswer::Yes};
  desk.form().mnuResetKeysToAlternateKeyMappingN.Click();
}

void restore(Desk& desk) { desk.form().mnuRestoreScripts.Click(); }

void makeCard(Desk& desk) { desk.form().mnuWKWStandard.Click(); }

constexpr Job jobs[] = {
    {"save", savedAndEdited, save, save},
    {"restore",
     [](Desk& desk) {
       saved(desk);
       for (const std::string& path : slotScripts)
         desk.files.replace(path, "[MACROS]\r\n" + desk.files.read(path));
     },
     restore, restore},
    {"save with documents",
     [](Desk& desk) {
       desk.form().chkGenerateHelp.SetValue(1);
       desk.form().chkGeneratePDF.SetValue(1);
       savedAndEdited(desk);
     },
     save, save},
    {"preset", saved, reset,
     [](Desk& desk) {
       reset(desk);
       desk.save();
     }},
    {"reference card", saved, makeCard, makeCard},
    {"start", [](Desk&) {}, [](Desk& desk) { desk.start(); },
     [](Desk& desk) {
       LoadKeyMapInfo(desk.form());
       desk.edit();
       desk.save();
     }},
};

}  // namespace

std::span<const Job> Jobs() { return jobs; }

Desk::Desk(FileStore& store, std::string_view server)
    : files(store),
      program(Services{store, registry, clock, processes, messages, checksums, languages, help},
              "C:\\Dialwright", "Dialwright") {
  readRegistryFile(BytesOf(sandbox / server / "server.reg"), registry);
}

void Desk::start() {
  try {
    Form_Load(form());
  } catch (const EndProgram&) {
    printer.line("ended");
  }
}

void Desk::edit() {
  for (KeyGrid& grid : form().gridKeyMap) {
    std::vector<int> rows;
    for (int row = 1; row < grid.Rows(); ++row)
      if (!grid.Text(row, Column::KeyAssignment).empty()) rows.push_back(row);
    if (rows.size() < 2) continue;
    const std::string key = grid.Text(rows[0], Column::KeyAssignment);
    grid.SetText(rows[0], Column::KeyAssignment, grid.Text(rows[1], Column::KeyAssignment));
    grid.SetText(rows[1], Column::KeyAssignment, key);
  }
  for (CheckBox* box : {&form().chkMAIN_GREETINGS, &form().chkMESSAGE_FAX})
    box->SetValue(1 - box->Value());
}

void Desk::save() {
  messages.answers = {MsgBoxAnswer::Yes};
  form().cmdSave.Enabled = true;
  form().cmdSave.Click();
}

}  // namespace dialwright
