#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
# Time from exec to the first painted pixel of the tuner window, resident memory and CPU while
# listening, on an X server of its own: start-time.py VELTRANO [RUNS]
import ctypes
import os
import subprocess
import sys
import tempfile
import time

SCREEN = "1280x900x24"


class XScreen:
    """Xvfb and a look at single pixels. The root is black; a window stays so until it is painted."""

    def __init__(self):
        self.read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", SCREEN, "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        self.name = ":" + os.read(self.read, 16).decode().strip()
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XGetImage.restype = ctypes.c_void_p
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(self.name.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def is_painted(self):
        # A column of pixels near the left edge, and the middle: wherever the window is put.
        for x, y in ((12, 12), (640, 300), (640, 450)):
            image = self.x11.XGetImage(self.display, self.root, x, y, 1, 1,
                                       ctypes.c_ulong(0xFFFFFFFF), 2)
            pixel = self.x11.XGetPixel(ctypes.c_void_p(image), 0, 0)
            self.x11.XFree(ctypes.c_void_p(image))
            if pixel & 0xFFFFFF:
                return True
        return False

    def close(self):
        self.server.terminate()
        self.server.wait()


def status(pid, field):
    for line in open(f"/proc/{pid}/status"):
        if line.startswith(field):
            return int(line.split()[1])
    return 0


def cpu_seconds(pid):
    fields = open(f"/proc/{pid}/stat").read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def main():
    program, runs = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 10
    screen = XScreen()
    times, memory, cpu = [], 0, 0.0
    with tempfile.TemporaryDirectory() as home:
        settings = os.path.join(home, "veltrano.ini")
        open(settings, "w").write("[General]\nmorvane.key.Tonic=0\n")  # not the first launch
        environment = dict(os.environ, DISPLAY=screen.name, QT_QPA_PLATFORM="xcb")
        for run in range(runs + 1):
            begin = time.perf_counter()
            process = subprocess.Popen([program, "--settings", settings], env=environment,
                                       stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
            while not screen.is_painted() and time.perf_counter() - begin < 10:
                time.sleep(0.001)
            times.append((time.perf_counter() - begin) * 1000)
            if run == runs:
                time.sleep(1)
                before = cpu_seconds(process.pid)
                time.sleep(5)
                cpu = (cpu_seconds(process.pid) - before) / 5 * 100
                memory = status(process.pid, "VmRSS")
            process.terminate()
            process.wait()
            while screen.is_painted():
                time.sleep(0.01)
    screen.close()
    warm = sorted(times[1:])
    print(f"start to painted window, {runs} warm runs: median {warm[len(warm) // 2]:.0f} ms, "
          f"least {warm[0]:.0f} ms, most {warm[-1]:.0f} ms (the first run: {times[0]:.0f} ms)")
    print(f"resident with the tuner window: {memory / 1024:.1f} MiB; CPU while running: {cpu:.1f} %")


main()
