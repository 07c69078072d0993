// SPDX-License-Identifier: MIT
// Symbol visibility of the VemoGridLib shared library.
#pragma once

#include <QtCore/qglobal.h>

#if defined(VEMOGRIDLIB_BUILDING)
#define VEMOGRIDLIB_EXPORT Q_DECL_EXPORT
#else
#define VEMOGRIDLIB_EXPORT Q_DECL_IMPORT
#endif
