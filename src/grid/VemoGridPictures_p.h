// SPDX-License-Identifier: MIT
// The pictures VemoGrid draws into its cells: check boxes, sort arrows and the current-row
// marker. They are drawn
// here, so the library carries no image files.
#pragma once

#include <QPixmap>

namespace VemoGridLib::GridPictures {

/// `imgChecked`: a ticked 13 × 13 box.
QPixmap checked();
/// `imgUnchecked`: an empty 13 × 13 box.
QPixmap unchecked();
/// `imgUP`: a small triangle pointing up, for an ascending sort.
QPixmap up();
/// `imgDown`: a small triangle pointing down, for a descending sort.
QPixmap down();
/// The current-row marker: a small triangle pointing right, as in a record selector.
QPixmap rowMarker();

} // namespace VemoGridLib::GridPictures
