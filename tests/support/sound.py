"""Sound files, and what the sound device gets when they are played: with SDL's disk driver that can
be read from a file."""

import array
import random
import wave

RATE = 11025


def write_noise(path, seconds, seed):
    """A sound that no other sounds like."""
    chance = random.Random(seed)
    samples = array.array("h", (chance.randrange(-8000, 8000) for _ in range(int(RATE * seconds))))
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


def played_bytes(path):
    """The samples as numbers between -1 and 1, of which the device gets the bytes."""
    with wave.open(str(path), "rb") as file:
        raw = file.readframes(file.getnframes())
        width = file.getsampwidth()
    if width == 1:
        return array.array("f", ((sample - 128) / 128 for sample in raw)).tobytes()
    return array.array("f", (sample / 32768 for sample in array.array("h", raw))).tobytes()


class Listener:
    """Hears what a program plays that is started with this environment."""

    def __init__(self, folder, sound_files):
        self.file = folder / "heard.raw"
        self.environment = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": str(self.file)}
        self.sounds = {path.name: played_bytes(path) for path in sound_files}

    def forget(self):
        self.file.unlink(missing_ok=True)

    def _heard(self):
        return self.file.read_bytes() if self.file.exists() else b""

    def under_way(self):
        """The sound that has begun; nothing when there is none."""
        heard = self._heard()
        return next((name for name, played in self.sounds.items() if played[2000:4000] in heard),
                    None)

    def is_heard_out(self, name):
        return self.sounds[name] in self._heard()
