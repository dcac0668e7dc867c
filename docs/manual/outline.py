"""Makes viewers open the manual with its outline beside it: an extension that rst2pdf loads."""

from reportlab.pdfgen import canvas


def install(_createpdf, _options):
    begin = canvas.Canvas.__init__

    def begin_with_outline(self, *arguments, **named):
        begin(self, *arguments, **named)
        self.showOutline()

    canvas.Canvas.__init__ = begin_with_outline
