// Full scales of recordings in all net configurations, against a count through the powers of ten.
#include "data/RowQuantities.h"
#include "diagrams/DiagramScale.h"
#include "evaluation/EvaluationFixture.h"

#include <random>

namespace korvanel::test {
namespace {

class ScaleOfRecordings : public EvaluationTest
{
protected:
    /// Random values of very different sizes in all fields that a configuration stores.
    static std::vector<tValueRow> RandomRows(int netConf, std::mt19937& random)
    {
        std::uniform_real_distribution<double> unit(-1, 1);
        std::map<int, double> sizes;
        for (const int quantity : StoredQuantities(netConf))
            sizes[quantity] = std::pow(10, 6 * unit(random));
        std::vector<tValueRow> rows(40);
        for (tValueRow& row : rows)
            for (const auto& [quantity, size] : sizes)
                QuantityField(row, quantity) = size * unit(random);
        return rows;
    }
    /// Greatest magnitude as the diagram draws it.
    static double Most(const std::vector<tValueRow>& rows, int quantity)
    {
        double most = 0;
        for (const tValueRow& row : rows)
            most = std::max(most, std::abs(QuantityValue(row, quantity)));
        const bool isEnergyOfASet = quantity == 12 || quantity == 13 || quantity >= 44;
        return isEnergyOfASet ? most / 3600 : most;
    }
    static double EndThatReaches(double most)
    {
        if (most == 0)
            return 1;
        for (int power = -20;; ++power)
            for (const int digit : {1, 5}) {
                const double end = std::stod(std::to_string(digit) + 'e' + std::to_string(power));
                if (end >= most)
                    return end;
            }
    }
};

TEST_F(ScaleOfRecordings, AreTheNextOneOrFiveTimesAPowerOfTenOfTheirGroup)
{
    const std::vector<std::vector<int>> groups{{0, 16, 17, 18}, {1, 19, 20, 21}, {3,  22, 23, 24, 9,  4,  28, 29, 30,
                                                                                  5,  25, 26, 27, 12, 13, 38, 39, 40,
                                                                                  41, 42, 43, 44, 45, 46, 47, 48, 49}};
    std::mt19937 random(20261121); // NOLINT(cert-msc51-cpp): the same recordings in every run
    for (int netConf = 0; netConf <= 6; ++netConf)
        for (int recording = 0; recording < 8; ++recording) {
            const std::vector<tValueRow> rows = RandomRows(netConf, random);
            std::array<double, kQuantityCount> expected{};
            for (int quantity = 0; quantity < kQuantityCount; ++quantity)
                expected.at(static_cast<std::size_t>(quantity)) = EndThatReaches(Most(rows, quantity));
            for (const std::vector<int>& group : groups) {
                double greatest = 0;
                for (const int member : group)
                    greatest = std::max(greatest, expected.at(static_cast<std::size_t>(member)));
                for (const int member : group)
                    expected.at(static_cast<std::size_t>(member)) = greatest;
            }
            const DiagramScaleEnds ends = ScaleEndsOf(Evaluate(netConf, rows));
            for (const int quantity : StoredQuantities(netConf))
                EXPECT_DOUBLE_EQ(ends.at(static_cast<std::size_t>(quantity)),
                                 expected.at(static_cast<std::size_t>(quantity)))
                    << quantity << " in configuration " << netConf;
        }
}

} // namespace
} // namespace korvanel::test
