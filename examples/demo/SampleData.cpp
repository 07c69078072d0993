// SPDX-License-Identifier: MIT
#include "SampleData.h"

#include <array>

namespace {

// A small office supplier's catalogue.
constexpr std::array Products{
    SampleProduct{"a4-paper-5", "A4 copy paper, box of 5", "A4复印纸（5包）", "box", 2490},
    SampleProduct{"pens-50", "Ballpoint pens, 50", "圆珠笔（50支）", "pack", 1250},
    SampleProduct{"stapler-hd", "Stapler, heavy duty", "重型订书机", "piece", 1875},
    SampleProduct{"led-lamp", "LED desk lamp", "LED台灯", "piece", 3900},
    SampleProduct{"office-chair", "Office chair", "办公椅", "piece", 18900},
    SampleProduct{"filing-cabinet", "Filing cabinet", "文件柜", "piece", 24900},
    SampleProduct{"toner-black", "Laser toner cartridge", "激光打印机硒鼓", "piece", 7990},
    SampleProduct{"whiteboard-120", "Whiteboard 120 x 90", "白板 120×90", "piece", 9600},
    SampleProduct{"usb-c-dock", "USB-C docking station", "USB-C扩展坞", "piece", 12900},
    SampleProduct{"monitor-27", "27-inch monitor", "27英寸显示器", "piece", 27900},
    SampleProduct{"keyboard-wl", "Wireless keyboard", "无线键盘", "piece", 4990},
    SampleProduct{"shredder", "Paper shredder", "碎纸机", "piece", 15900},
    SampleProduct{"label-printer", "Label printer", "标签打印机", "piece", 11900},
    SampleProduct{"coffee-beans", "Coffee beans", "咖啡豆", "kg", 2140},
    SampleProduct{"green-tea", "Green tea", "绿茶", "kg", 8600},
    SampleProduct{"cups-1000", "Paper cups, 1000", "纸杯（1000只）", "carton", 3400},
    SampleProduct{"archive-10", "Archive boxes, 10", "档案盒（10个）", "pack", 2890},
    SampleProduct{"cat6-cable", "Network cable", "网线", "m", 120},
    SampleProduct{"sticky-notes", "Sticky notes, 12 pads", "便利贴（12本）", "pack", 980},
    SampleProduct{"calculator", "Calculator", "计算器", "piece", 2280},
    SampleProduct{"projector", "Projector", "投影仪", "piece", 189900},
    SampleProduct{"carpet-tiles", "Carpet tiles", "地毯砖", "m²", 2340},
};

constexpr std::array Customers{
    SampleCustomer{"Northwind Office Supply", "Leeds"},
    SampleCustomer{"Blue Harbour Traders", "Bristol"},
    SampleCustomer{"Kestrel Furniture", "York"},
    SampleCustomer{"Lantern Electronics", "Manchester"},
    SampleCustomer{"上海明远贸易有限公司", "上海"},
    SampleCustomer{"Meridian Coffee Co.", "Norwich"},
};

constexpr std::array Lines1001{
    SampleLine{"a4-paper-5", 1000, true},
    SampleLine{"pens-50", 600, true},
    SampleLine{"sticky-notes", 1500, false},
};
constexpr std::array Lines1002{
    SampleLine{"office-chair", 300, false},
    SampleLine{"filing-cabinet", 100, false},
};
constexpr std::array Lines1003{
    SampleLine{"monitor-27", 400, true},
    SampleLine{"usb-c-dock", 400, true},
    SampleLine{"keyboard-wl", 400, false},
    SampleLine{"cat6-cable", 7550, false},
};
constexpr std::array Lines1004{
    SampleLine{"coffee-beans", 250, true},
    SampleLine{"green-tea", 125, true},
    SampleLine{"cups-1000", 200, false},
};
constexpr std::array Lines1005{
    SampleLine{"projector", 100, true},
    SampleLine{"whiteboard-120", 200, true},
    SampleLine{"carpet-tiles", 1875, false},
};

constexpr std::array Invoices{
    SampleInvoice{1001, 0, "2024-03-04", 3, "", Lines1001},
    SampleInvoice{1002, 2, "2024-03-06", 14, "Deliver to the back entrance.", Lines1002},
    SampleInvoice{1003, 4, "2024-03-11", 7, "请在工作日送货。", Lines1003},
    SampleInvoice{1004, 5, "2024-03-15", 2, "", Lines1004},
    SampleInvoice{1005, 3, "2024-03-20", 10, "Meeting room refit.", Lines1005},
};

} // namespace

std::span<const SampleProduct> sampleProducts()
{
    return Products;
}

std::span<const SampleCustomer> sampleCustomers()
{
    return Customers;
}

std::span<const SampleInvoice> sampleInvoices()
{
    return Invoices;
}
