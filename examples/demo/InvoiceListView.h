// SPDX-License-Identifier: MIT
// The demo's second view: one FlexGrid of generated invoices, sorted by header clicks.
#pragma once

#include "DemoPictures.h"
#include "InvoiceGenerator.h"

#include <QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QStatusBar;
QT_END_NAMESPACE

namespace VemoGridLib {
class FlexGrid;
}

/// Shows `InvoiceCount` invoices in a FlexGrid with a numbered fixed column, a FormatString
/// header, merged runs of equal customers, status pictures and banded rows. A click on a
/// column header sorts by that column, a second click on it reverses the order.
///
/// The invoices are generated when the view is first shown, so that the window opens at once
/// on its first tab.
class InvoiceListView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int InvoiceCount = 100'000;

    explicit InvoiceListView(QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill(const std::vector<Invoice>& invoices);
    void fillStatusPictures(const std::vector<Invoice>& invoices);
    /// Fits the columns to their texts.
    void sizeColumns();
    /// Numbers the rows and colours every other one, after the fill and after each sort.
    void numberAndBand();
    void onMouseDown(short button);
    void onClick();
    void sortBy(int col);
    void showSortArrow(int col, bool ascending);

    VemoGridLib::FlexGrid* m_grid;
    QStatusBar* m_status;
    DemoPictures m_pictures;
    bool m_filled = false;
    /// The header column under the last left-button press, −1 when the press was elsewhere.
    int m_pressedHeader = -1;
    int m_sortedCol = -1;
    bool m_sortedAscending = false;
};
