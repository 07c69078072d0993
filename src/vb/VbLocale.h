// SPDX-License-Identifier: MIT
// Which locale rules the VB runtime subset follows: en-US or zh-CN.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

namespace VemoGridLib::vb {

/// The two rule sets: en-US, and zh-CN where it differs
/// (currency symbol, preferred date order, date and month texts).
enum class VbLocale {
    EnUS,
    ZhCN,
};

/// VB's conversions follow the *user* default locale, read from the environment on every call
/// (userDefaultLcid()): 2052 gives ZhCN, anything else EnUS. This is kept
/// apart from the *system* locale that chooses the message language.
VEMOGRIDLIB_EXPORT VbLocale userLocale();

} // namespace VemoGridLib::vb
