#include "util/picture/KVPictureHelperProgram.h"

#include <QCoreApplication>

/// Reads one picture for the program that has started it: `kalvora-picture SOURCE [RESULT]`.
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    return KVPictureHelperProgram::run(QCoreApplication::arguments().mid(1));
}
