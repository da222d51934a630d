#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Lays down root's rights while it lives, so that what a file allows counts in a test that root
/// runs. Files that such a test uses are made meanwhile.
class PlainUser {
  public:
    PlainUser() {
        if (isRoot_ && seteuid(nobody) != 0)
            qFatal("the rights of root can't be laid down");
    }
    ~PlainUser() {
        if (isRoot_ && seteuid(0) != 0)
            qFatal("the rights of root can't be taken up again");
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

  private:
    static constexpr uid_t nobody = 65534;
    const bool isRoot_ = geteuid() == 0;
};
