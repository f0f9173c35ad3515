#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace ovalis::test {

/// Permissions are not asked of root, so the scope runs for nobody.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (user_ == 0 && (setegid(nobody) != 0 || seteuid(nobody) != 0))
            ADD_FAILURE() << "cannot give up root";
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (user_ == 0 && (seteuid(user_) != 0 || setegid(group_) != 0))
            ADD_FAILURE() << "cannot become root again";
    }

private:
    static constexpr uid_t nobody = 65534;
    const uid_t user_ = geteuid();
    const gid_t group_ = getegid();
};

} // namespace ovalis::test
