import { themeQuartz } from "ag-grid-community";

export const gridTheme = themeQuartz.withParams({
    browserColorScheme: "inherit",
    backgroundColor: "var(--surface)",
    foregroundColor: "var(--text)",
    accentColor: "var(--accent)",
    borderColor: "var(--line)",
    headerBackgroundColor: "var(--head)",
    headerTextColor: "var(--muted)",
    headerFontWeight: 600,
    rowHoverColor: "var(--hover)",
    oddRowBackgroundColor: "var(--surface)",
    fontFamily: "inherit",
    fontSize: "var(--size)",
    headerFontSize: "var(--small)",
    rowHeight: "var(--row)",
    headerHeight: "var(--row)",
    cellHorizontalPadding: "8px",
    wrapperBorderRadius: "var(--radius)",
    spacing: "4px",
    columnBorder: { color: "var(--hair)" },
    rowBorder: { color: "var(--hair)" },
});
