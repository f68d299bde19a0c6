#include "sampling/raising.h"

#include "data/numbers.h"
#include "data/result_set.h"

namespace kelvora {

double raisingFactor(double total, double sample) {
    return leadingNumber(twoDecimals(total / sample));
}

double sampleWith(double sample, double weight) {
    return asRead(sample + weight);
}

double roomInGroup(double total, double sample) {
    return asRead(total - sample);
}

std::optional<QString> weightProblem(const QString& typed) {
    const std::optional<double> weight = toNumber(typed);
    if (!weight) {
        return QStringLiteral("Please input weight in numeric only");
    }
    if (*weight < 0) {
        return QStringLiteral("A weight cannot be negative");
    }
    return std::nullopt;
}

std::optional<QString> totalWeightProblem(const QString& typed) {
    const std::optional<double> total = toNumber(typed);
    if (!total) {
        return QStringLiteral("Please input total weight in numeric only");
    }
    if (*total <= 0) {
        return QStringLiteral("The total weight of a group must be greater than 0");
    }
    return std::nullopt;
}

std::optional<QString> groupNameProblem(const QString& name) {
    const QString plain = name.trimmed();
    if (plain.isEmpty()) {
        return QStringLiteral("Please input groupname");
    }
    if (sameText(plain, kSingleSpeciesGroup)) {
        return QStringLiteral(
            "'Single species' is the group of the species weighed whole: please give this group"
            " another name");
    }
    return std::nullopt;
}

std::optional<QString> sampleProblem(double total, double sample) {
    if (sample == 0) {
        return QStringLiteral("The weights of the sample sum to 0: it cannot be raised to the total weight");
    }
    if (roomInGroup(total, sample) < 0) {
        return QStringLiteral("The sample weighs '%1' kg., more than the '%2' kg. of the whole group")
            .arg(plainText(sample), plainText(total));
    }
    return std::nullopt;
}

}  // namespace kelvora
