import java.util.ArrayList;
import java.util.List;

/** The rows of a menu in the two columns of a panel, lines broken. */
final class CardColumns {
    private static final int COLUMNS = 2;

    private CardColumns() {}

    /** One mapping, broken into the lines in which it is printed. */
    static final class Row {
        final List<String> keyLines;
        final List<String> taskLines;
        final float height;

        Row(List<String> keyLines, List<String> taskLines, float lineHeight, float gap) {
            this.keyLines = keyLines;
            this.taskLines = taskLines;
            this.height = Math.max(keyLines.size(), taskLines.size()) * lineHeight + gap;
        }
    }

    /** How many of the rows, from the first on, two columns of a height hold. */
    static int countThatFits(List<Row> rows, float height) {
        int count = 0;
        for (int column = 0; column < COLUMNS; column++) {
            float filled = 0;
            while (count < rows.size() && filled + rows.get(count).height <= height) {
                filled += rows.get(count++).height;
            }
        }
        return count;
    }

    /** Two columns, the longer one as short as can be. */
    static List<List<Row>> balanced(List<Row> rows) {
        float left = 0;
        float right = height(rows);
        int split = 0;
        while (split < rows.size() && left < right - rows.get(split).height + 0.01f) {
            left += rows.get(split).height;
            right -= rows.get(split++).height;
        }
        return List.of(new ArrayList<>(rows.subList(0, split)), new ArrayList<>(rows.subList(split, rows.size())));
    }

    /** The height of the longer column. */
    static float balancedHeight(List<Row> rows) {
        float longest = 0;
        for (List<Row> column : balanced(rows)) {
            longest = Math.max(longest, height(column));
        }
        return longest;
    }

    private static float height(List<Row> rows) {
        float sum = 0;
        for (Row row : rows) {
            sum += row.height;
        }
        return sum;
    }
}
