// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/SpeechEngine.h"

#include "platform/desktop/SpeechChoice.h"

#include <QTextToSpeech>
#include <utility>

namespace veltrano {

SpeechEngine::SpeechEngine(Log& log, const Clock& clock) : mTurns(*this, log, clock) {}

SpeechEngine::~SpeechEngine() {
    mThread.quit();
    mThread.wait();
}

void SpeechEngine::speak(const std::string& utf8) {
    if (!mSpeechThread) {
        mSpeechThread = new QObject;
        mSpeechThread->moveToThread(&mThread);
        QObject::connect(&mThread, &QThread::finished, mSpeechThread, &QObject::deleteLater);
        mThread.start();
    }
    QMetaObject::invokeMethod(mSpeechThread, [this, text = QString::fromStdString(utf8)] {
        if (QTextToSpeech* voice = engine()) voice->say(text);
    });
}

void SpeechEngine::fallSilent() {
    QMetaObject::invokeMethod(mSpeechThread, [this] {
        if (mEngine) mEngine->stop();
    });
}

QTextToSpeech* SpeechEngine::engine() {
    if (mEngine) return mEngine;
    const QString name = speech_choice::engine(QTextToSpeech::availableEngines());
    if (name.isEmpty()) {
        tell([this] { mTurns.failed("no speech engine is installed"); });
        return nullptr;
    }
    mEngine = new QTextToSpeech(name, mSpeechThread);
    QObject::connect(mEngine, &QTextToSpeech::stateChanged, mEngine, [this](auto state) {
        if (state == QTextToSpeech::Speaking) tell([this] { mTurns.started(); });
        if (state == QTextToSpeech::Ready) tell([this] { mTurns.finished(); });
    });
    // A second failure leaves the state as it is, so states do not tell failures.
    QObject::connect(mEngine, &QTextToSpeech::errorOccurred, mEngine,
                     [this](auto, const QString& reason) {
                         tell([this, text = reason.toStdString()] { mTurns.failed(text); });
                     });
    const QLocale inUse = mEngine->locale();
    const QLocale english = speech_choice::language(inUse, mEngine->availableLocales());
    if (english != inUse) mEngine->setLocale(english);
    return mEngine;
}

template <class Function>
void SpeechEngine::tell(Function function) {
    QMetaObject::invokeMethod(&mMainThread, std::move(function), Qt::QueuedConnection);
}

} // namespace veltrano
