// SPDX-License-Identifier: GPL-3.0-or-later
// Must not link: the function belongs to a library that displays do not use.
namespace veltrano::period_detector {
int levelOf(float amplitude) noexcept;
}

int main() { return veltrano::period_detector::levelOf(1.0F); }
