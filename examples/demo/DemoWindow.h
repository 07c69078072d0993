// The demo's main window: one FlexGrid of generated invoices, sorted by header clicks.
#pragma once

#include "DemoPictures.h"
#include "InvoiceGenerator.h"

#include <QMainWindow>

#include <vector>

namespace VemoGridLib {
class FlexGrid;
}

/// Shows `InvoiceCount` invoices in a FlexGrid with a numbered fixed column, a FormatString
/// header, merged runs of equal customers, status pictures and banded rows. A click on a
/// column header sorts by that column, a second click on it reverses the order.
class DemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    static constexpr int InvoiceCount = 100'000;

    explicit DemoWindow(QWidget* parent = nullptr);

private:
    void fill(const std::vector<Invoice>& invoices);
    void fillStatusPictures(const std::vector<Invoice>& invoices);
    /// Fits the columns to their texts and the window to the columns.
    void sizeColumns();
    /// Numbers the rows and colours every other one, after the fill and after each sort.
    void numberAndBand();
    void onMouseDown(short button);
    void onClick();
    void sortBy(int col);
    void showSortArrow(int col, bool ascending);
    void showStatus(const QString& message);

    VemoGridLib::FlexGrid* m_grid;
    DemoPictures m_pictures;
    /// The header column under the last left-button press, −1 when the press was elsewhere.
    int m_pressedHeader = -1;
    int m_sortedCol = -1;
    bool m_sortedAscending = false;
};
