"""What a screen reader does: it finds things by their names, acts on them, and waits for what comes of that."""

import time

from gi.repository import GLib
from pyatspi import Atspi

from desktop import PATIENCE


def until(condition, what):
    """Waits for a condition, which is asked again after each piece of news."""
    deadline = time.monotonic() + PATIENCE
    news = GLib.MainContext.default()
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > deadline:
            raise AssertionError(f"It never came: {what}")
        # Not everything is told of.
        GLib.timeout_add(50, lambda: False)
        news.iteration(True)


class Part:
    """One thing that a screen reader can come to."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def role(self):
        return self.accessible.get_role()

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def seen(self):
        return self.has(Atspi.StateType.VISIBLE)

    @property
    def enabled(self):
        return self.has(Atspi.StateType.ENABLED)

    @property
    def checked(self):
        return self.has(Atspi.StateType.CHECKED)

    @property
    def children(self):
        found = []
        for index in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(index)
            if child:
                found.append(Part(child))
        return found

    def within(self):
        """Itself and everything within that can be seen."""
        if not self.seen:
            return
        yield self
        for child in self.children:
            yield from child.within()

    @property
    def value(self):
        return Atspi.Value.get_current_value(self.accessible.get_value_iface())

    @value.setter
    def value(self, number):
        Atspi.Value.set_current_value(self.accessible.get_value_iface(), number)

    @property
    def text(self):
        shown = self.accessible.get_text_iface()
        return Atspi.Text.get_text(shown, 0, Atspi.Text.get_character_count(shown)) if shown else ""

    @text.setter
    def text(self, text):
        Atspi.EditableText.set_text_contents(self.accessible.get_editable_text_iface(), text)

    @property
    def editable(self):
        return self.accessible.get_editable_text_iface() is not None

    @property
    def actions(self):
        offered = self.accessible.get_action_iface()
        if not offered:
            return []
        return [Atspi.Action.get_action_name(offered, place) for place in range(Atspi.Action.get_n_actions(offered))]

    def act(self, action):
        Atspi.Action.do_action(self.accessible.get_action_iface(), self.actions.index(action))

    def press(self):
        self.act("Press")


class ScreenReader:
    """Of one window, which it waits for."""

    def __init__(self, application):
        Atspi.init()
        # A window on a busy machine is slow to answer.
        Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)
        self.announced = []
        self.listener = Atspi.EventListener.new(self._hear)
        for kind in ("object:state-changed:showing", "object:property-change", "object:announcement"):
            self.listener.register(kind)
        self.desktop = Atspi.get_desktop(0)
        # What is read is read anew.
        self.desktop.set_cache_mask(Atspi.Cache.NONE)
        self.window = until(lambda: self._window_of(application), f"the window of {application}")

    def _window_of(self, application):
        try:
            for program in Part(self.desktop).children:
                if program.name == application and program.children:
                    return program.children[0]
        except GLib.Error:
            # One of them went, or is only coming.
            return None
        return None

    def _hear(self, event):
        if event.type.startswith("object:announcement"):
            self.announced.append(str(event.any_data))
        elif event.detail1 == 1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
            self.announced.append(event.source.get_name())

    def look_for(self, name, role=None, condition=lambda part: True):
        """What has this name, or any; nothing if it is not there now."""
        try:
            for part in self.window.within():
                if name in (None, part.name) and role in (None, part.role) and condition(part):
                    return part
        except GLib.Error:
            # It went while it was looked at.
            return None
        return None

    def find(self, name, role=None, condition=lambda part: True):
        return until(lambda: self.look_for(name, role, condition), name)

    def wait_for_announcement(self, sentence):
        until(lambda: sentence in self.announced, sentence)
