// SPDX-License-Identifier: GPL-3.0-or-later
// A process that wants to be the only one of its identity, for tests.
//   veltrano-instance-process IDENTITY [FILE...]
// The first one says "first" and then what it gets, a line each, until it is ended. A later one
// says "handed over", or "no answer" and whether it is the first by now.
#include "platform/desktop/SingleInstance.h"

#include <QCoreApplication>
#include <cstdio>

using veltrano::SingleInstance;

namespace {

void say(const char* text) {
    std::puts(text);
    std::fflush(stdout);
}

int hand(SingleInstance& instance, const SingleInstance::Files& files) {
    if (instance.handOver(files)) {
        say("handed over");
        return 0;
    }
    say(instance.isFirst() ? "no answer, first" : "no answer");
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc < 2) return 2;
    SingleInstance instance(QString::fromUtf8(argv[1]));
    if (!instance.isFirst()) return hand(instance, {argv + 2, argv + argc});
    instance.setReceiver([](const SingleInstance::Files& files) {
        for (const std::string& file : files)
            say(QByteArray::fromStdString(file).toPercentEncoding("/").constData());
        if (files.empty()) say("come to the front");
    });
    say("first");
    return QCoreApplication::exec();
}
