// SPDX-License-Identifier: MIT
#include "SampleData.h"

#include <array>

namespace {

// A small office's purchases over two months, entered as the deliveries came in. Some goods
// are sold by weight or length, so quantities use the form's two decimals.
constexpr std::array Lines{
    StockLine{"2024-02-19", "A4 copy paper, box of 5", "A4复印纸（5包）", "a4-paper-5", 2490, 1000,
              240, true},
    StockLine{"2024-02-05", "Ballpoint pens, 50", "圆珠笔（50支）", "pens-50", 1250, 600, 180,
              true},
    StockLine{"2024-03-11", "Stapler, heavy duty", "重型订书机", "stapler-hd", 1875, 200, 14,
              false},
    StockLine{"2024-02-27", "LED desk lamp", "LED台灯", "led-lamp", 3900, 400, 22, true},
    StockLine{"2024-03-04", "Office chair", "办公椅", "office-chair", 18900, 300, 9, false,
              "One chair arrived with a torn seat.\nThe supplier sends a new one next week."},
    StockLine{"2024-02-12", "Filing cabinet", "文件柜", "filing-cabinet", 24900, 100, 4, true},
    StockLine{"2024-03-18", "Laser toner cartridge", "激光打印机硒鼓", "toner-black", 7990, 800, 31,
              false},
    StockLine{"2024-02-08", "Whiteboard 120 x 90", "白板 120×90", "whiteboard-120", 9600, 200, 6,
              true},
    StockLine{"2024-03-25", "USB-C docking station", "USB-C扩展坞", "usb-c-dock", 12900, 500, 17,
              false},
    StockLine{"2024-02-21", "27-inch monitor", "27英寸显示器", "monitor-27", 27900, 300, 12, true},
    StockLine{"2024-03-07", "Wireless keyboard", "无线键盘", "keyboard-wl", 4990, 700, 45, true},
    StockLine{"2024-02-02", "Paper shredder", "碎纸机", "shredder", 15900, 100, 3, true},
    StockLine{"2024-03-14", "Label printer", "标签打印机", "label-printer", 11900, 200, 5, false},
    StockLine{"2024-02-15", "Coffee beans (kg)", "咖啡豆（公斤）", "coffee-beans", 2140, 250, 38,
              true, "Medium roast, whole beans."},
    StockLine{"2024-03-21", "Green tea (kg)", "绿茶（公斤）", "green-tea", 8600, 125, 7, false},
    StockLine{"2024-02-09", "Paper cups, 1000", "纸杯（1000只）", "cups-1000", 3400, 1200, 12000,
              true},
    StockLine{"2024-03-01", "Archive boxes, 10", "档案盒（10个）", "archive-10", 2890, 400, 96,
              true},
    StockLine{"2024-02-23", "Network cable (m)", "网线（米）", "cat6-cable", 120, 7550, 1250, true},
    StockLine{"2024-03-27", "Sticky notes, 12 pads", "便利贴（12本）", "sticky-notes", 980, 1500,
              410, false},
    StockLine{"2024-02-06", "Desk organiser", "桌面收纳盒", "desk-organiser", 1560, 600, 28, true},
    StockLine{"2024-03-12", "Thermal paper rolls, 10", "热敏纸卷（10卷）", "thermal-rolls", 1800,
              900, 150, true},
    StockLine{"2024-02-28", "Extension cord 5 m", "5米插线板", "extension-5m", 3250, 400, 19, true},
    StockLine{"2024-03-19", "Hand sanitiser 500 ml", "洗手液 500毫升", "sanitiser-500", 795, 2400,
              130, false},
    StockLine{"2024-02-13", "Calculator", "计算器", "calculator", 2280, 500, 24, true},
    StockLine{"2024-03-05", "Bookshelf", "书架", "bookshelf", 13500, 200, 6, true},
    StockLine{"2024-03-26", "Projector", "投影仪", "projector", 189900, 100, 2, false,
              "For the meeting room; mount ordered separately."},
    StockLine{"2024-02-16", "Laptop stand", "笔记本支架", "laptop-stand", 4500, 800, 33, true},
    StockLine{"2024-03-08", "Brass screws (kg)", "黄铜螺丝（公斤）", "brass-screws", 6845, 35, 4,
              true},
    StockLine{"2024-02-26", "Carpet tiles (m²)", "地毯砖（平方米）", "carpet-tiles", 2340, 1875,
              120, false},
    StockLine{"2024-03-15", "Cable ties, 100", "扎带（100根）", "cable-ties-100", 430, 1000, 3400,
              true},
};

} // namespace

std::span<const StockLine> sampleStockLines()
{
    return Lines;
}
