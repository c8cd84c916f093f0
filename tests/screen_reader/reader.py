"""A small screen reader: prints the texts that the program gives to assistive technology.

    reader.py window            the active window and all that it shows: role, name and description
    reader.py announcements     each line that is announced, until the process is killed
"""

import re
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

NAMED = {"label", "text", "password text", "combo box", "check box", "push button", "image", "list",
         "table", "tree"}


def has(item, state):
    return item.get_state_set().contains(state)


def children(item):
    return [child for child in map(item.get_child_at_index, range(item.get_child_count())) if child]


def say(item):
    # The value after the colon can depend on the machine.
    name = re.split("[：:]", item.get_name())[0]
    print(" | ".join([item.get_role_name(), name, item.get_description()]).rstrip(" |"))


def say_all(item):
    for child in children(item):
        if has(child, Atspi.StateType.SHOWING):
            if child.get_role_name() in NAMED and child.get_name():
                say(child)
            say_all(child)


def say_window():
    for program in children(Atspi.get_desktop(0)):
        for window in children(program):
            if has(window, Atspi.StateType.ACTIVE):
                say(window)
                say_all(window)


def say_announcement(event):
    try:
        if event.detail1 == 1 and event.source.get_role_name() == "notification":
            print(event.source.get_name(), flush=True)
    except GLib.Error:
        pass  # The object is gone again.


def follow_announcements():
    listener = Atspi.EventListener.new(say_announcement)
    listener.register("object:state-changed:showing")
    print("listening", flush=True)
    GLib.MainLoop().run()


try:
    {"window": say_window, "announcements": follow_announcements}[sys.argv[1]]()
except GLib.Error:
    sys.exit("the window has changed meanwhile")
