#!/usr/bin/env python3
"""Makes the expected MIDI events of the samples that play, from their scores written as notes.

The engine is not used. A score's note is "c5:8": a name, the octave and the part of a whole note;
"r" is a rest. Only the rules of timing are here: a quarter has 4,608 ticks of a whole number of
microseconds, a note sounds 7 eighths of its length if nothing else is said, and every event is
sent 50 ms ahead of its sound and recorded to 20 microseconds.
"""

import pathlib

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "lang" / "samples"
QUARTER, LATENCY, GRID, POLL = 4608, 50000, 20, 20000
SEMITONES = {"c": 0, "d": 2, "e": 4, "f": 5, "g": 7, "a": 9, "b": 11}
BEEP_NOTE, BEEP_SECONDS = 81, 0.5


def rounded(time):
    return (time + GRID // 2) // GRID * GRID


class Player:
    """Queues of seven channels and the time at which each event of theirs is heard."""

    def __init__(self):
        self.now, self.tick, self.per_tick = 0, 0, 108
        self.queues = [[] for _ in range(7)]
        self.end = [0] * 7
        self.eighths, self.velocity = [7] * 7, [127] + [64] * 6
        self.serial = 0
        self.heard = []

    def add(self, channel, tick, text):
        self.serial += 1
        self.queues[channel].append((tick, self.serial, text))

    def begin(self):
        for channel, queue in enumerate(self.queues):
            if not queue:
                self.end[channel] = max(self.end[channel], self.tick)

    def program(self, channel, number):
        self.add(channel, self.end[channel] - 1, "program %d" % number)

    def tempo(self, channel, tempo):
        self.add(channel, self.end[channel], tempo)

    def notes(self, channel, score):
        for item in score.split():
            name, part = item.split(":")
            length = QUARTER // int(part) * 4
            if name != "r":
                sharp = "+" in name
                key = 12 * int(name[-1]) + 24 + SEMITONES[name[0]] + sharp
                self.sound(channel, key, length)
            else:
                self.end[channel] += length
            self.add(channel, self.end[channel], None)

    def sound(self, channel, key, length):
        part = self.eighths[channel]
        velocity = self.velocity[channel]
        self.add(channel, self.end[channel], "on %d %d" % (key, velocity))
        self.end[channel] += length * part // 8
        self.add(channel, self.end[channel], "off %d %d" % (key, velocity))
        self.end[channel] += length * (8 - part) // 8

    def hear(self, channel, tick, text, base):
        if isinstance(text, int):
            self.per_tick = 60000000 // (text * QUARTER)
        elif text is not None:
            if channel == 0 and text.startswith("off"):
                self.heard.append((base, "0 control 123 0"))
            stamp = base + (tick - self.tick) * self.per_tick + LATENCY
            self.heard.append((stamp, "%d %s" % (channel, text)))

    def play_out(self):
        """Plays until all queues are empty; the time of the last event."""
        base = self.now
        while True:
            for channel, queue in enumerate(self.queues):
                queue.sort()
                while queue and queue[0][0] <= self.tick:
                    tick, _, text = queue.pop(0)
                    self.hear(channel, tick, text, base)
            rest = [queue[0][0] for queue in self.queues if queue]
            if not rest:
                return base
            distance = min(rest) - self.tick
            base += distance * self.per_tick
            self.tick += distance

    def wait(self):
        """The foreground waits for the end of its music, looking every 20 ms."""
        last = self.play_out() - self.now
        assert last % POLL != 0
        self.now += (last // POLL + 1) * POLL

    def sleep(self, milliseconds):
        self.now += milliseconds * 1000

    def write(self, name):
        lines = ("%d %s\n" % (rounded(time), text)
                 for time, text in sorted(self.heard, key=lambda event: event[0]))
        (SAMPLES / (name + ".midi")).write_text("".join(lines))


def canon():
    player = Player()
    bars = ("c%d:4 f%d:4 d%d:4 e%d:4", "e%d:8 g%d:8 a%d:8 f%d:8 g%d:8 b%d:8 C%d:4",
            "g%d:4 a%d:8 C%d:8 b%d:8 d%d:8 g%d:4", "c%d:4 A%d:4 B%d:4 c%d:4")
    parts = ((1, 5, 73, 110, 0), (2, 4, 68, 101, 1), (3, 3, 71, 93, 2))
    for channel, octave, program, velocity, wait in parts:
        player.velocity[channel] = velocity
        if channel == 1:
            player.tempo(1, 132)
        player.program(channel, program)
        player.notes(channel, "r:1 " * wait)
        tune = " ".join(bars).replace("C%d", "c%d" % (octave + 1))
        tune = tune.replace("A%d", "a%d" % (octave - 1)).replace("B%d", "b%d" % (octave - 1))
        player.notes(channel, (tune.replace("%d", str(octave)) + " ") * 2)
    player.play_out()
    player.write("canon")


def musicbox():
    player = Player()
    tunes = (("e5 g5 c5 e5 c6 b5 a5 g5", "c3 e3"), ("f5 a5 d5 f5 a5 g5 f5 e5", "d3 f3"),
             ("d5 g5 b5 g5 f5 e5 d5 b5", "g3 b3"), ("c5 e5 g5 e5 c6:4 g5:4", "c3 c3"),
             ("a5 e5 c5 e5 e6 a5 b5 c6", "a3 e3"), ("f5 a5 d5 f5 d6 c5 b5 a5", "d3 f3"),
             ("g5 b5 d5 f5 e5 d5 c5 b4", "g3 g3"), ("c5:4 e5:4 c6:2", "c3 c3"))
    player.velocity[1], player.velocity[2] = 101, 76
    for tune, bass in tunes:
        player.program(2, 32)
        player.notes(2, " ".join(note + ":2" for note in bass.split()))
        player.program(1, 11)
        player.notes(1, " ".join(n if ":" in n else n + ":8" for n in tune.split()))
    player.play_out()
    player.write("musicbox")


def beep_switch(player, text):
    player.begin()
    player.add(0, player.end[0], text)
    player.end[0] += 1000 // player.per_tick
    player.play_out()


def effects():
    player = Player()
    player.program(0, 81)
    player.end[0] += 1
    player.add(0, player.end[0], "on 81 127")
    player.end[0] += 500000 // player.per_tick
    player.add(0, player.end[0], "off 81 127")
    player.wait()
    player.sleep(200)
    for _ in range(2):
        for _ in range(3):
            beep_switch(player, "on 81 127")
            player.sleep(60)
            beep_switch(player, "off 81 127")
            player.sleep(60)
        player.sleep(200)
    ladder = "c7 g6 e6 c6 g5 e5 c5 g4 e4 c4"
    for tempo, voices in (
            (180, ((11, 118, 7, "b6:16 e7:4"),)),
            (255, ((120, 118, 7, " ".join(n + ":64" for n in ladder.split())),)),
            (200, ((26, 118, 8, " ".join(n + ":64" for n in
                                         "c4 d4 e4 f4 g4 a4 b4 c5 d5 e5".split())),)),
            (150, ((0, 118, 4, "g5:16 f5:16 e5:16 d5:16 c5:16"),
                   (0, 64, 4, "g4:16 f4:16 e4:16 d4:16 c4:16"))),
            (120, ((10, 127, 4, "c1:32 c1:32 c1:32 c1:32 c1:8"),
                   (10, 127, 4, "c+1:32 c+1:32 c+1:32 c+1:32 c+1:8"),
                   (10, 110, 7, "d1:32 d1:32 d1:32 d1:32 d1:4"))),
            (160, ((61, 118, 4, "c5:8 e5:8 g5:8 c6:2"), (61, 93, 4, "g4:8 b4:8 c5:8 e5:2"),
                   (61, 93, 7, "c4:8 d4:8 e4:8 g4:2")))):
        player.begin()
        for channel, (program, velocity, eighths, score) in reversed(list(enumerate(voices, 1))):
            player.velocity[channel], player.eighths[channel] = velocity, eighths
            if channel == 1:
                player.tempo(1, tempo)
            player.program(channel, program)
            player.notes(channel, score)
        player.wait()
        player.sleep(300)
    player.write("effects")


if __name__ == "__main__":
    canon()
    musicbox()
    effects()
