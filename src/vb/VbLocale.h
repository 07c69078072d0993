// Which locale rules the VB runtime subset follows (vb-semantics.md §15).
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

namespace VemoGridLib::vb {

/// The two rule sets of vb-semantics.md: en-US, and zh-CN where §15 says it differs
/// (currency symbol, preferred date order, date and month texts).
enum class VbLocale {
    EnUS,
    ZhCN,
};

/// VB's conversions follow the *user* default locale, read from the environment on every call
/// (userDefaultLcid()): 2052 gives ZhCN, anything else EnUS. This is kept
/// apart from the *system* locale that chooses the message language (Part 1.12).
VEMOGRIDLIB_EXPORT VbLocale userLocale();

} // namespace VemoGridLib::vb
