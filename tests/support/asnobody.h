#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Without the superuser's rights, which reach everywhere, while it lives;
/// nothing for a user who has none of them.
class AsNobody {
public:
    AsNobody()
    {
        if (m_user == 0 && (setegid(nobody) != 0 || seteuid(nobody) != 0))
            qFatal("the superuser can't lay its rights down");
    }
    ~AsNobody()
    {
        if (m_user == 0 && (seteuid(m_user) != 0 || setegid(m_group) != 0))
            qFatal("the superuser can't take its rights back");
    }
    Q_DISABLE_COPY(AsNobody)

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_user = geteuid();
    gid_t m_group = getegid();
};
