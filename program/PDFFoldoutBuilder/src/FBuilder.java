/**
 * Makes the foldout card of a conversation: reads the key map of the folder above the current one
 * and leaves a PDF document in the folder PDF of the current one. It takes no arguments.
 *
 * <p>This class alone is built for a Java that is older than the others need, so that an older one
 * can at least say what is missing.
 */
public final class FBuilder {
    private static final int OLDEST_JAVA = 11;

    private FBuilder() {}

    public static void main(String[] arguments) {
        String version = System.getProperty("java.specification.version");
        if (feature(version) < OLDEST_JAVA) {
            System.err.println("FBuilder: The card takes Java " + OLDEST_JAVA + " or newer; this is Java " + version + ".");
            System.exit(1);
        }
        CardTool.run();
    }

    /** The number by which a Java is known: 8 of "1.8", 17 of "17". */
    private static int feature(String version) {
        String number = version.startsWith("1.") ? version.substring(2) : version;
        return Integer.parseInt(number.replaceAll("[^0-9].*", ""));
    }
}
