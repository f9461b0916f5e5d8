#include "faults/PowerCut.h"

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/Support.h"

namespace zelkor::test {
namespace {

std::string contentOf(sqlite3_file* file, const sqlite3_io_methods& methods) {
  sqlite3_int64 size = 0;
  methods.xFileSize(file, &size);
  std::string content(static_cast<std::size_t>(size), '\0');
  if (size > 0) methods.xRead(file, content.data(), static_cast<int>(size), 0);
  return content;
}

}  // namespace

// The engine's own layer does the work; only opening and forcing pass through this one.
struct PowerCut::Layer : sqlite3_vfs {
  struct Methods : sqlite3_io_methods {
    Layer* layer = nullptr;
    const sqlite3_io_methods* own = nullptr;
    std::string path;
  };

  static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto& layer = *static_cast<Layer*>(vfs);
    const int code = layer.engines->xOpen(layer.engines, name, file, flags, outFlags);
    if (code == SQLITE_OK && (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_WAL)) != 0) layer.watch(file, name);
    return code;
  }

  static int force(sqlite3_file* file, int flags) {
    const auto& methods = *static_cast<const Methods*>(file->pMethods);
    ++methods.layer->forced;
    methods.layer->onDisk[methods.path] = contentOf(file, *methods.own);
    return methods.own->xSync(file, flags);
  }

  void watch(sqlite3_file* file, const char* name) {
    auto& methods = *watched.emplace_back(std::make_unique<Methods>());
    static_cast<sqlite3_io_methods&>(methods) = *file->pMethods;
    methods.layer = this;
    methods.own = file->pMethods;
    methods.path = name;
    methods.xSync = force;
    onDisk.try_emplace(methods.path, contentOf(file, *methods.own));
    file->pMethods = &methods;
  }

  sqlite3_vfs* engines = nullptr;
  std::vector<std::unique_ptr<Methods>> watched;
  std::map<std::string, std::string> onDisk;
  int forced = 0;
};

PowerCut::PowerCut() : layer_(std::make_unique<Layer>()) {
  sqlite3_vfs* engines = sqlite3_vfs_find(nullptr);
  static_cast<sqlite3_vfs&>(*layer_) = *engines;
  layer_->engines = engines;
  layer_->zName = "power cut";
  layer_->xOpen = Layer::open;
  sqlite3_vfs_register(layer_.get(), 1);
}

PowerCut::~PowerCut() {
  sqlite3_vfs_unregister(layer_.get());
  sqlite3_vfs_register(layer_->engines, 1);
}

void PowerCut::leave(const std::filesystem::path& file, const std::filesystem::path& copy) const {
  for (const char* part : {"", "-wal"}) {
    const auto content = layer_->onDisk.find(file.string() + part);
    if (content != layer_->onDisk.end()) writeFile(copy.string() + part, content->second);
  }
}

int PowerCut::forced() const {
  return layer_->forced;
}

}  // namespace zelkor::test
