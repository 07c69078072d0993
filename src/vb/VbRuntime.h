// SPDX-License-Identifier: MIT
// The VB runtime subset the library relies on, in namespace VemoGridLib::vb with VB's names.
#pragma once

#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VbLocale.h>
#include <VemoGridLib/VbStrings.h>
