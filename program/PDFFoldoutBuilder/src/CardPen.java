import java.awt.Color;
import java.io.IOException;
import org.apache.pdfbox.pdmodel.PDPageContentStream;
import org.apache.pdfbox.pdmodel.font.PDFont;

/** The few strokes that a card is drawn with. */
final class CardPen {
    static final Color INK_BLUE = new Color(0x1F, 0x3A, 0x5F);
    static final Color GREY = new Color(0x5A, 0x5A, 0x5A);
    static final Color CAP = new Color(0xF1, 0xF3, 0xF6);
    static final Color CAP_EDGE = new Color(0x8A, 0x94, 0xA3);

    /** How far a curve's handles stand off to come close to a quarter of a circle. */
    private static final float ROUND = 0.5523f;

    private final PDPageContentStream stream;

    CardPen(PDPageContentStream stream) {
        this.stream = stream;
    }

    void text(PDFont font, float size, Color color, float x, float y, String text) throws IOException {
        stream.beginText();
        stream.setFont(font, size);
        stream.setNonStrokingColor(color);
        stream.newLineAtOffset(x, y);
        stream.showText(text);
        stream.endText();
    }

    void line(float x1, float y1, float x2, float y2, float width, Color color, boolean dashed)
            throws IOException {
        stream.setLineWidth(width);
        stream.setStrokingColor(color);
        stream.setLineDashPattern(dashed ? new float[] {4f, 3f} : new float[0], 0);
        stream.moveTo(x1, y1);
        stream.lineTo(x2, y2);
        stream.stroke();
    }

    void frame(float x, float y, float width, float height, float lineWidth, Color color) throws IOException {
        stream.setLineWidth(lineWidth);
        stream.setStrokingColor(color);
        stream.setLineDashPattern(new float[0], 0);
        stream.addRect(x, y, width, height);
        stream.stroke();
    }

    /** A filled box with round corners; without an edge if {@code edge} is null. */
    void box(float x, float y, float width, float height, float radius, Color fill, Color edge)
            throws IOException {
        float right = x + width;
        float top = y + height;
        float handle = radius * (1 - ROUND);
        stream.setNonStrokingColor(fill);
        stream.moveTo(x + radius, y);
        stream.lineTo(right - radius, y);
        stream.curveTo(right - handle, y, right, y + handle, right, y + radius);
        stream.lineTo(right, top - radius);
        stream.curveTo(right, top - handle, right - handle, top, right - radius, top);
        stream.lineTo(x + radius, top);
        stream.curveTo(x + handle, top, x, top - handle, x, top - radius);
        stream.lineTo(x, y + radius);
        stream.curveTo(x, y + handle, x + handle, y, x + radius, y);
        stream.closePath();
        if (edge == null) {
            stream.fill();
            return;
        }
        stream.setLineWidth(0.4f);
        stream.setLineDashPattern(new float[0], 0);
        stream.setStrokingColor(edge);
        stream.fillAndStroke();
    }
}
