#!/usr/bin/env python3
"""Reads lines from a serial port and prints them as steps of vorlent-stick:

    docs/examples/serial-stick.py /dev/ttyACM0 | vorlent-stick --name arduino

"x 512" is a reading of an axis (x y z rx ry rz slider0 slider1), 0 to 1023; "b3 1" is button 3
pressed, "b3 0" let go. Other lines are dropped. A port that goes away is opened again when it
comes back; until then no button is pressed.
"""
import os, re, sys, termios, time, tty

AXIS = re.compile(r"(x|y|z|rx|ry|rz|slider[01]) (\d{1,4})")
BUTTON = re.compile(r"b(\d{1,2}) ([01])")


def step_of(line):
    if (axis := AXIS.fullmatch(line)) and int(axis[2]) <= 1023:
        return f"{axis[1]}={int(axis[2]) * 65535 // 1023}"
    if (button := BUTTON.fullmatch(line)) and 1 <= int(button[1]) <= 32:
        return ("press " if button[2] == "1" else "release ") + button[1]
    return None


def lines_of(path):
    with open(os.open(path, os.O_RDONLY | os.O_NOCTTY), "rb") as port:
        tty.setraw(port)
        attributes = termios.tcgetattr(port)
        attributes[4] = attributes[5] = termios.B115200
        termios.tcsetattr(port, termios.TCSANOW, attributes)
        for line in port:
            yield line.decode("ascii", "replace").strip()


while True:
    try:
        for line in lines_of(sys.argv[1]):
            if step := step_of(line):
                print(step, flush=True)
    except (OSError, termios.error) as error:
        print(error, file=sys.stderr)
    print(*(f"release {n}" for n in range(1, 33)), flush=True)
    time.sleep(1)
    while not os.path.exists(sys.argv[1]):
        time.sleep(1)
