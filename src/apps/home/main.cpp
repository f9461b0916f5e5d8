#include <iostream>
#include <optional>
#include <QApplication>
#include <QSocketNotifier>
#include <stdexcept>

#include "apps/BatchJobs.h"
#include "apps/home/HomeCall.h"
#include "base/EndSignals.h"
#include "base/LoginName.h"
#include "base/RuntimeError.h"
#include "home/FrmAccountSets.h"
#include "home/FrmHome.h"
#include "home/FrmLogin.h"
#include "home/frmWorker.h"
#include "startup/ProgramEnd.h"
#include "ui/QtDialogs.h"
#include "ui/WindowProgram.h"

namespace zelkor {
namespace {

constexpr int kWrongUsage = 2;

/// A list that cannot be kept is used all the same.
void remember(RunContext& run, AccountSetList& list, const KnownAccountSet& set) {
  try {
    list.remember(set);
  } catch (const RuntimeError& error) {
    run.dialogs.MsgBox(std::string("账套列表没有保存：") + error.what(), Buttons::Ok, Icon::Exclamation,
                       "固定资产工作台");
  }
}

std::optional<OpenedSet> openedFromList(FormHost& host, AccountSetList& list) {
  FrmAccountSets sets(host, list);
  host.showModal(sets);
  return sets.opened();
}

/// The only account set of a place, with who worked with it last; nothing where there are several, which the
/// list shows then.
std::optional<KnownAccountSet> onlySetAt(RunContext& run, AccountSetList& list, const std::string& place) {
  std::vector<KnownAccountSet> found = accountSetsAt(place);
  if (found.size() == 1) {
    for (const KnownAccountSet& known : list.sets())
      if (known.isSame(found.front())) found.front().user = known.user;
    return found.front();
  }
  for (const KnownAccountSet& set : found) remember(run, list, set);
  return std::nullopt;
}

std::optional<OpenedSet> openedAt(FormHost& host, AccountSetList& list, const HomeCall& call) {
  const auto set = onlySetAt(host.run(), list, call.place);
  if (!set) return openedFromList(host, list);
  const AccountSetState state = lookAt(*set);
  if (!state.canBeOpened()) throw RuntimeError(ErrorNumber::FileNotFound, state.detail);
  const DateTime now = host.run().clock.now();
  OpenedSet opened{state.set, call.user, call.date.value_or(offeredDate(state.open, now))};
  if (opened.user.empty()) opened.user = state.set.user.empty() ? loginName() : state.set.user;
  std::optional<OpenedSet> agreed = opened;
  if (call.user.empty() || !call.date) agreed = askLogin(host, opened, state.open);
  if (!agreed) return std::nullopt;
  agreed->set.user = agreed->user;
  agreed->set.lastUsed = now;
  remember(host.run(), list, agreed->set);
  return agreed;
}

int runHome(const HomeCall& call) {
  QtDialogs dialogs;
  const SystemClock clock;
  DbEngine engine;
  RunContext context(engine, dialogs, clock);
  context.programFolder = programFolder();
  AccountSetList list(AccountSetList::usualFile());

  FormHost host(context, [](int status) { QCoreApplication::exit(status); });
  QSocketNotifier endSignal(endSignalDescriptor(), QSocketNotifier::Read);
  QObject::connect(&endSignal, &QSocketNotifier::activated, [&] {
    endSignal.setEnabled(false);
    host.dispatch(goOnUnlessSignalled);
  });
  bool shown = false;
  host.dispatch([&] {
    auto opened = call.place.empty() ? openedFromList(host, list) : openedAt(host, list, call);
    if (!opened) return;
    host.show<FrmHome>(list, std::move(*opened),
                       HomePrograms{context.programFolder + "/zelkor", context.programFolder + "/zelkorctl"});
    shown = true;
  });
  if (const auto status = host.endStatus()) return *status;
  return shown ? QApplication::exec() : 0;
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  zelkor::HomeCall call;
  try {
    call = zelkor::parseHomeCall({argv + 1, argv + argc});
  } catch (const std::invalid_argument& wrong) {
    std::cerr << "用法错误 / wrong usage: " << wrong.what() << "\n用 zelkor-home --help 查看用法\n";
    return zelkor::kWrongUsage;
  }
  if (!call.text.empty()) {
    std::cout << call.text << std::flush;
    return std::cout ? 0 : 1;
  }
  zelkor::frmWorker::endProcess(zelkor::runWindowProgram(
      argc, argv, "zelkor-home", "在终端里可用 zelkorctl status", [&] { return zelkor::runHome(call); }));
}
