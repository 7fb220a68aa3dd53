// SPDX-License-Identifier: GPL-3.0-or-later
// The engine, in its own thread.
#include "platform/desktop/SpeechWorker.h"

#include "platform/desktop/SpeechChoice.h"

#include <QTextToSpeech>

namespace veltrano {

void SpeechWorker::speak(const QString& text) {
    if (hasEngine()) {
        mEngine->say(text);
    } else {
        emit failed(QStringLiteral("no speech engine is installed"));
    }
}

void SpeechWorker::fallSilent() {
    if (mEngine) mEngine->stop();
}

bool SpeechWorker::hasEngine() {
    if (mEngine) return true;
    const QString name = speech_choice::engine(QTextToSpeech::availableEngines());
    if (name.isEmpty()) return false;
    mEngine = new QTextToSpeech(name, this);
    connect(mEngine, &QTextToSpeech::stateChanged, this, [this](QTextToSpeech::State state) {
        if (state == QTextToSpeech::Speaking) emit started();
        if (state == QTextToSpeech::Ready) emit finished();
    });
    // A second failure leaves the state as it is, so states do not tell failures.
    connect(mEngine, &QTextToSpeech::errorOccurred, this,
            [this](QTextToSpeech::ErrorReason, const QString& reason) { emit failed(reason); });
    const QLocale inUse = mEngine->locale();
    const QLocale english = speech_choice::language(inUse, mEngine->availableLocales());
    if (english != inUse) mEngine->setLocale(english);
    return true;
}

} // namespace veltrano
