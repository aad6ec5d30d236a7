#include "model/jex/codes.h"

namespace JEX {

const char *const implementationWords[] = {"BSRAM", "REG", "SSRAM"};

QString implementationName(Implementation implementation)
{
    return implementation == NoImplementation ? QString()
                                              : QString::fromLatin1(implementationWords[implementation]);
}

Implementation implementationNamed(const QString &name)
{
    for (Implementation known : {BsramImplementation, RegImplementation, SsramImplementation}) {
        if (name == QLatin1String(implementationWords[known])) {
            return known;
        }
    }
    return NoImplementation;
}

Implementation implementationOf(qint32 number)
{
    return number == RegImplementation || number == SsramImplementation ? Implementation(number)
                                                                        : BsramImplementation;
}

} // namespace JEX
