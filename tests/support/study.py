"""A study window that keeps the score, as its user sees it."""


class ScoreBoard:
    """The marks and the two counters of the Speller and the Chooser."""

    def __init__(self, desktop, window):
        self.desktop, self.window = desktop, window
        labels = {label.description: label for label in window.all("label")}
        self.counters = [labels[caption] for caption in ("Right:", "Wrong:")]

    def counts(self):
        return [int(counter.name) for counter in self.counters]

    def marks(self):
        names = [thing.name for thing in self.window.all("graphic")]
        return [name for name in names if name in ("Right", "Wrong")]

    def wait_for_counts(self, right, wrong):
        self.desktop.wait_until(lambda: self.counts() == [right, wrong],
                                f"{right} right and {wrong} wrong")
