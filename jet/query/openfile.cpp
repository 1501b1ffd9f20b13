#include "jet/query/openfile.h"

#include "jet/error.h"

#include <utility>

namespace jet::detail {

OpenFile::OpenFile(std::unique_ptr<Engine> engine)
    : path_(engine->File().Path()), engine_(std::move(engine)) {}

Engine& OpenFile::Get() const {
    if (engine_ == nullptr) {
        throw Error{ErrorNumber::ObjectClosed, "file was closed: " + path_.string()};
    }
    return *engine_;
}

}  // namespace jet::detail
