#pragma once
// Protected files and folders, also for tests that run as root.

#include <sys/fsuid.h>

namespace testdata {

/// While it lives, files are reached with an ordinary user's rights: root has rights that no
/// protection takes away. Changes nothing for a user who is ordinary already.
class OrdinaryRights {
  public:
    OrdinaryRights() : group_(::setfsgid(kNobody)), user_(::setfsuid(kNobody)) {}
    ~OrdinaryRights() {
        ::setfsuid(static_cast<unsigned>(user_));
        ::setfsgid(static_cast<unsigned>(group_));
    }
    OrdinaryRights(const OrdinaryRights&) = delete;
    OrdinaryRights& operator=(const OrdinaryRights&) = delete;

  private:
    static constexpr unsigned kNobody = 65534;
    int group_, user_;
};

}  // namespace testdata
