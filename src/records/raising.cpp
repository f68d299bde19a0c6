#include "records/raising.h"

#include "data/numbers.h"
#include "data/result_set.h"

using namespace Qt::StringLiterals;

namespace kelvora {

double raisingFactor(double total, double sample) {
    return leadingNumber(twoDecimals(total / sample));
}

double sampleWith(double sample, double weight) {
    return readable(sample + weight);
}

double roomInGroup(double total, double sample) {
    return readable(total - sample);
}

std::optional<QString> weightProblem(const QString& typed) {
    const std::optional<double> weight = toNumber(typed);
    if (!weight) {
        return u"Please input weight in numeric only"_s;
    }
    if (*weight < 0) {
        return u"A weight cannot be negative"_s;
    }
    return std::nullopt;
}

std::optional<QString> totalWeightProblem(const QString& typed) {
    const std::optional<double> total = toNumber(typed);
    if (!total) {
        return u"Please input total weight in numeric only (decimal point, no comma)"_s;
    }
    if (*total <= 0) {
        return u"The total weight of a group must be greater than 0"_s;
    }
    return std::nullopt;
}

std::optional<QString> groupNameProblem(const QString& name) {
    const QString plain = name.trimmed();
    if (plain.isEmpty()) {
        return u"Please input groupname"_s;
    }
    if (sameText(plain, kSingleSpeciesGroup)) {
        return u"'Single species' is the group of the species weighed whole: please give this group"
               " another name"_s;
    }
    return std::nullopt;
}

std::optional<QString> sampleProblem(double total, double sample) {
    if (sample == 0) {
        return u"The weights of the sample sum to 0: it cannot be raised to the total weight"_s;
    }
    if (roomInGroup(total, sample) < 0) {
        return u"The sample weighs '%1' kg., more than the '%2' kg. of the whole group"_s.arg(plainText(sample),
                                                                                              plainText(total));
    }
    return std::nullopt;
}

}  // namespace kelvora
