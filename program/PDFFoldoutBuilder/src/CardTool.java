import java.io.BufferedOutputStream;
import java.io.IOException;
import java.io.OutputStream;
import java.nio.file.AtomicMoveNotSupportedException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.nio.file.StandardOpenOption;

/** From the key map to the card, or to one line that says why there is none. */
final class CardTool {
    private static final Path KEY_MAP = Path.of("..", "XMLKeyMap.XML");
    private static final Path FOLDER = Path.of("PDF");

    private CardTool() {}

    static void run() {
        // Nothing is ever shown, and a server need not have a screen.
        System.setProperty("java.awt.headless", "true");
        try {
            System.out.println(build());
        } catch (CardFailure failure) {
            fail(failure.getMessage());
        } catch (IOException failure) {
            fail("The card cannot be written: " + failure);
        }
    }

    private static void fail(String message) {
        System.err.println("FBuilder: " + message);
        System.exit(1);
    }

    private static Path build() throws IOException, CardFailure {
        KeyMap map = KeyMapReader.read(KEY_MAP);
        Files.createDirectories(FOLDER);
        Path card = FOLDER.resolve(fileName(map.conversation));
        Path unfinished = FOLDER.resolve("." + ProcessHandle.current().pid() + ".tmp");
        try {
            try (OutputStream out = new BufferedOutputStream(
                    Files.newOutputStream(unfinished, StandardOpenOption.CREATE, StandardOpenOption.TRUNCATE_EXISTING))) {
                CardPainter.paint(map, out);
            }
            replace(unfinished, card);
        } finally {
            Files.deleteIfExists(unfinished);
        }
        return card;
    }

    private static void replace(Path from, Path to) throws IOException {
        try {
            Files.move(from, to, StandardCopyOption.ATOMIC_MOVE);
        } catch (AtomicMoveNotSupportedException unsupported) {
            Files.move(from, to, StandardCopyOption.REPLACE_EXISTING);
        }
    }

    /** The conversation's name with nothing in it that a file system could take amiss. */
    static String fileName(String conversation) {
        String safe = conversation.replaceAll("[^A-Za-z0-9 ()_-]", "_");
        safe = safe.substring(0, Math.min(safe.length(), 80)).trim();
        return (safe + " key card.pdf").trim();
    }
}
