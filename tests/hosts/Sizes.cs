// What the runtime hands over for each record: sizes and places, as the control reads them.
using System;
using System.Runtime.InteropServices;

public static class Sizes
{
    private static int faults;

    private static void Expect(Type record, int size, string lastField, int place)
    {
        int found = Marshal.SizeOf(record);
        int foundPlace = Marshal.OffsetOf(record, lastField).ToInt32();
        if (found == size && foundPlace == place)
            return;
        Console.WriteLine("{0}: size {1} instead of {2}, {3} at {4} instead of {5}", record.Name, found, size, lastField,
                          foundPlace, place);
        ++faults;
    }

    public static int Main()
    {
        Expect(typeof(Scrivctl3.RECT), 16, "bottom", 12);
        Expect(typeof(Scrivctl3.edHighlightHook), 16, "ctx", 8);
        Expect(typeof(Scrivctl3.edSettingsBlock), 16, "size", 8);
        Expect(typeof(Scrivctl3.edCreateParams), 56, "defaultTheme", 48);
        Expect(typeof(Scrivctl3.edPoint), 8, "y", 4);
        Expect(typeof(Scrivctl3.edPrintSetup), 80, "wholeText", 72);
        Expect(typeof(Scrivctl3.edPrintPageParams), 16, "page", 8);
        return faults;
    }
}
