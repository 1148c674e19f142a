#include "desktop/Opening.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <utility>

#include "desktop/QtText.h"
#include "text/Text.h"

namespace dialwright {

namespace {

/// The machine's registry is the server, and there is no other.
class MachinesOwn : public Opening {
 public:
  std::optional<Place> Next() override {
    if (std::exchange(over, true)) return std::nullopt;
    return Place{{},
                 ReplaceAll(FromQt(QCoreApplication::applicationDirPath()), "/", "\\"),
                 FromQt(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName()),
                 {}};
  }
  void Offer(MainWindow&, Program&) override {}
  void Opened(const Place&) override {}

 private:
  bool over = false;
};

}  // namespace

std::unique_ptr<Opening> MakeOpening() { return std::make_unique<MachinesOwn>(); }

bool AnswerWithoutWindow(int, char**) { return false; }

}  // namespace dialwright
