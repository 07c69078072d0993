// SPDX-License-Identifier: MIT
// The pictures VemoGrid draws into its cells: check boxes, sort arrows and the current-row
// marker. They are drawn here, so the library carries no image files, and at any device pixel
// ratio, so that they stay sharp on a scaled screen. Exported for the tests.
#pragma once

#include "common/VemoGridLibExport.h"

#include <QPixmap>

namespace VemoGridLib::GridPictures {

/// `imgChecked`: a ticked 13 × 13 box.
VEMOGRIDLIB_EXPORT QPixmap checked(qreal ratio = 1);
/// `imgUnchecked`: an empty 13 × 13 box.
VEMOGRIDLIB_EXPORT QPixmap unchecked(qreal ratio = 1);
/// `imgUP`: a small triangle pointing up, for an ascending sort.
VEMOGRIDLIB_EXPORT QPixmap up(qreal ratio = 1);
/// `imgDown`: a small triangle pointing down, for a descending sort.
VEMOGRIDLIB_EXPORT QPixmap down(qreal ratio = 1);
/// The current-row marker: a small triangle pointing right, as in a record selector.
VEMOGRIDLIB_EXPORT QPixmap rowMarker(qreal ratio = 1);

} // namespace VemoGridLib::GridPictures
