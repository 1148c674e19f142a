#include <memory>

#include "HeadlessUser.h"
#include "Runner.h"

int main(int argc, char** argv) {
  using namespace dialwright;
  return RunTranscripts({argv + 1, argv + argc}, [](Program& program) -> std::unique_ptr<User> {
    return std::make_unique<HeadlessUser>(program);
  });
}
