import java.awt.Color;
import java.io.IOException;
import java.io.OutputStream;
import java.util.List;
import org.apache.pdfbox.pdmodel.PDDocument;
import org.apache.pdfbox.pdmodel.PDPage;
import org.apache.pdfbox.pdmodel.PDPageContentStream;
import org.apache.pdfbox.pdmodel.common.PDRectangle;

/**
 * Draws a card: sheets of up to nine panels, a cover in the first corner, fold and cut lines around.
 *
 * <p>A sheet is A4 across. The block of panels stands in its middle and leaves margins wide enough
 * for US Letter too, so that either paper can be printed at actual size.
 */
final class CardPainter {
    private static final PDRectangle PAGE = new PDRectangle(297 * CardLayout.MM, 210 * CardLayout.MM);
    private static final float LEFT = (PAGE.getWidth() - CardLayout.PANELS_ACROSS * CardLayout.PANEL_WIDTH) / 2;

    private static final String HOW_TO_FOLD =
            "Print at actual size (100%), cut along the solid line, fold along the dashed lines:"
                    + " first the columns like a fan, then the rows, with the cover on top.";

    private final CardLayout layout;
    private final CardCover cover;

    private CardPainter(CardLayout layout, CardCover cover) {
        this.layout = layout;
        this.cover = cover;
    }

    static void paint(KeyMap map, OutputStream out) throws IOException, CardFailure {
        List<KeyMap.Section> sections = map.sectionsOnPaper();
        new CardPainter(CardLayout.of(sections), new CardCover(map, sections)).paintSheets(out);
    }

    private void paintSheets(OutputStream out) throws IOException {
        int panelCount = layout.panels.size();
        int sheetCount = layout.sheets();
        try (PDDocument document = new PDDocument()) {
            document.getDocumentInformation().setTitle(cover.name() + " - key card");
            document.getDocumentCatalog().setLanguage("en");
            for (int sheet = 0; sheet < sheetCount; sheet++) {
                int first = sheet * CardLayout.PANELS_PER_SHEET;
                int used = Math.min(panelCount - first, CardLayout.PANELS_PER_SHEET);
                PDPage page = new PDPage(PAGE);
                document.addPage(page);
                try (PDPageContentStream stream = new PDPageContentStream(document, page)) {
                    String sheetName = sheetCount == 1 ? "" : "Sheet " + (sheet + 1) + " of " + sheetCount;
                    paintSheet(new CardPen(stream), first, used, sheetName);
                }
            }
            document.save(out);
        }
    }

    private void paintSheet(CardPen pen, int first, int used, String sheetName) throws IOException {
        int rows = (used + CardLayout.PANELS_ACROSS - 1) / CardLayout.PANELS_ACROSS;
        float blockHeight = rows * CardLayout.PANEL_HEIGHT;
        float top = (PAGE.getHeight() + blockHeight) / 2;
        boolean leftToRight = true;
        for (int place = 0; place < rows * CardLayout.PANELS_ACROSS; place++) {
            int across = place % CardLayout.PANELS_ACROSS;
            // What goes on from the row above begins right below it, so that a fold joins the two.
            if (across == 0 && place > 0) {
                leftToRight = place >= used || !layout.panels.get(first + place).isContinuation || !leftToRight;
            }
            int column = leftToRight ? across : CardLayout.PANELS_ACROSS - 1 - across;
            float x = LEFT + column * CardLayout.PANEL_WIDTH;
            float y = top - place / CardLayout.PANELS_ACROSS * CardLayout.PANEL_HEIGHT;
            if (first + place == 0) {
                cover.paint(pen, x, y);
            } else if (place < used) {
                paintPanel(pen, layout.panels.get(first + place), x, y);
            } else {
                paintNotes(pen, x, y);
            }
        }
        paintLines(pen, rows, top);
        paintMargins(pen, top, top - blockHeight, sheetName);
    }

    private void paintPanel(CardPen pen, CardLayout.Panel panel, float x, float y) throws IOException {
        for (CardLayout.Piece piece : panel.pieces) {
            paintPiece(pen, piece, x + CardLayout.PADDING, y - CardLayout.PADDING - piece.top);
        }
    }

    private void paintPiece(CardPen pen, CardLayout.Piece piece, float left, float top) throws IOException {
        float size = layout.size;
        float heading = layout.headingHeight();
        pen.box(left, top - heading, CardLayout.BODY_WIDTH, heading, 1.5f, CardPen.INK_BLUE, null);
        float indent = size * 0.6f;
        float titleSize = CardFonts.fittingSize(
                CardFonts.BOLD, size, piece.title, CardLayout.BODY_WIDTH - 2 * indent);
        pen.text(CardFonts.BOLD, titleSize, Color.WHITE, left + indent, top - heading / 2 - size * 0.35f, piece.title);
        float x = left;
        for (List<CardColumns.Row> column : piece.columns) {
            float y = top - layout.rowsTop();
            for (CardColumns.Row row : column) {
                paintRow(pen, row, piece.keyWidth, x, y);
                y -= row.height;
            }
            x += CardLayout.COLUMN_WIDTH + CardLayout.COLUMN_GAP;
        }
    }

    private void paintRow(CardPen pen, CardColumns.Row row, float keyWidth, float x, float top) throws IOException {
        float size = layout.size;
        float line = layout.lineHeight();
        float capHeight = row.keyLines.size() * line;
        pen.box(x, top - capHeight, keyWidth, capHeight, 1.8f, CardPen.CAP, CardPen.CAP_EDGE);
        float y = top - line / 2 - size * 0.35f;
        for (String key : row.keyLines) {
            float indent = (keyWidth - CardFonts.width(CardFonts.BOLD, size, key)) / 2;
            pen.text(CardFonts.BOLD, size, Color.BLACK, x + indent, y, key);
            y -= line;
        }
        y = top - line / 2 - size * 0.35f;
        for (String task : row.taskLines) {
            pen.text(CardFonts.REGULAR, size, Color.BLACK, x + keyWidth + CardLayout.KEY_GAP, y, task);
            y -= line;
        }
    }

    private void paintNotes(CardPen pen, float x, float y) throws IOException {
        float left = x + CardLayout.PADDING;
        pen.text(CardFonts.REGULAR, CardLayout.READABLE, CardPen.GREY, left,
                y - CardLayout.PADDING - CardLayout.READABLE, "Notes");
        for (float line = 24f; line < CardLayout.PANEL_HEIGHT - CardLayout.PADDING; line += 16f) {
            pen.line(left, y - line, left + CardLayout.BODY_WIDTH, y - line, 0.3f, CardPen.CAP_EDGE, false);
        }
    }

    private void paintLines(CardPen pen, int rows, float top) throws IOException {
        float width = CardLayout.PANELS_ACROSS * CardLayout.PANEL_WIDTH;
        float height = rows * CardLayout.PANEL_HEIGHT;
        for (int column = 1; column < CardLayout.PANELS_ACROSS; column++) {
            float x = LEFT + column * CardLayout.PANEL_WIDTH;
            pen.line(x, top, x, top - height, 0.5f, CardPen.GREY, true);
        }
        for (int row = 1; row < rows; row++) {
            float y = top - row * CardLayout.PANEL_HEIGHT;
            pen.line(LEFT, y, LEFT + width, y, 0.5f, CardPen.GREY, true);
        }
        pen.frame(LEFT, top - height, width, height, 0.8f, Color.BLACK);
    }

    private void paintMargins(CardPen pen, float top, float bottom, String sheetName) throws IOException {
        float right = PAGE.getWidth() - LEFT;
        float sheetWidth = CardFonts.width(CardFonts.REGULAR, 8f, sheetName);
        float nameWidth = right - LEFT - sheetWidth - 20f;
        float nameSize = CardFonts.fittingSize(CardFonts.BOLD, 9f, cover.name(), nameWidth);
        pen.text(CardFonts.BOLD, nameSize, Color.BLACK, LEFT, top + 10f, cover.name());
        pen.text(CardFonts.REGULAR, 8f, CardPen.GREY, right - sheetWidth, top + 10f, sheetName);
        pen.text(CardFonts.REGULAR, 8f, CardPen.GREY, LEFT, bottom - 16f, HOW_TO_FOLD);
    }
}
