// SPDX-License-Identifier: GPL-3.0-or-later
// What temperament documents ask of the settings.
#pragma once

namespace veltrano {

/// Thread: main. Changes are announced as kReferencePitch and kRootKeyChanged.
class TuningSettings {
public:
    virtual ~TuningSettings() = default;
    virtual double referencePitch() const = 0; ///< [Hz] of A4
    virtual int tonic() const = 0;             ///< root key, 0 (C) ... 11
};

} // namespace veltrano
