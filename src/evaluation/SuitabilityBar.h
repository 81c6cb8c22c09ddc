// The bar "Eignung": the shares of the classes of sets in their colours, each with its percentage.
#pragma once

#include "evaluation/SuitabilityShares.h"

#include <QWidget>

namespace korvanel {

class SuitabilityBar : public QWidget
{
    Q_OBJECT

public:
    explicit SuitabilityBar(const char* name);
    void Show(std::vector<SuitabilityShare> classShares);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<SuitabilityShare> shares;
};

} // namespace korvanel
