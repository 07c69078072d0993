// SPDX-License-Identifier: MIT
// Fuzzes VemoGrid::ReadProperties with a bag read from the input as JSON, then uses the grid
// as a form would: sorting, adding and removing rows, painting, saving. Every step may refuse
// with a VemoError; none may crash.
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "FuzzSupport.h"
#include "flexgrid/FlexCellStore_p.h"

#include <QImage>

#include <algorithm>
#include <cstdint>

using namespace VemoGridLib;

namespace {

template <typename Step>
void tryStep(Step&& step)
{
    try {
        step();
    } catch (const VemoError&) {
    }
}

// A size the store accepts but that takes seconds to fill and paint: legitimate, and too slow
// for fuzzing. Sizes beyond the store's limits stay in, as they are refused at once.
bool largeButAccepted(const MemoryPropertyBag& bag)
{
    const auto count = [&](const char* name) {
        return std::max(1.0, bag.ReadProperty(QString::fromLatin1(name), 2).toDouble());
    };
    const double rows = count("Rows");
    const double cols = count("Cols");
    return rows * cols > 100000 && rows <= 2147483647.0 && cols <= 2147483647.0 &&
           FlexCellStore::fits(qint64(rows), qint64(cols));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    VemoFuzz::startApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const MemoryPropertyBag bag = VemoFuzz::bagFrom(data, size, error);
    if (!error.isEmpty() || largeButAccepted(bag))
        return 0;

    VemoGrid grid;
    grid.resize(240, 160);
    grid.ReadProperties(bag);
    QImage image(grid.size(), QImage::Format_ARGB32);
    const auto paint = [&] {
        grid.render(&image);
    };
    paint();
    tryStep([&] { grid.Sort(1, SortAscending); });
    tryStep([&] { grid.AddItem(QStringLiteral("1\t2\t3")); });
    tryStep([&] { grid.Sort(grid.Cols() - 1, SortDescending); });
    paint();
    tryStep([&] { grid.RemoveItem(grid.Rows() - 1); });
    tryStep([&] { grid.AddItem(QString(), 1); });
    tryStep([&] { grid.RemoveItem(0); });
    paint();
    MemoryPropertyBag saved;
    grid.WriteProperties(saved);
    saved.toJson();
    return 0;
}
