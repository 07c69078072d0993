// SPDX-License-Identifier: MIT
#include "vb/VbLocale.h"

#include "common/Locale.h"

namespace VemoGridLib::vb {

VbLocale userLocale()
{
    constexpr quint32 lcidChinesePRC = 2052;
    return userDefaultLcid() == lcidChinesePRC ? VbLocale::ZhCN : VbLocale::EnUS;
}

} // namespace VemoGridLib::vb
