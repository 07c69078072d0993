// The VB runtime subset the spec relies on, in namespace VemoGridLib::vb with VB's names.
#pragma once

#include "common/VbConversion.h"
#include "common/VbDateTime.h"
#include "common/VbFormat.h"
#include "common/VbLocale.h"
#include "common/VbStrings.h"
