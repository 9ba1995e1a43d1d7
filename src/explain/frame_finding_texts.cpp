#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"frame.misspelt_end",
     "A line that can only be the end of a module is not written '$end'. The rest of the input is "
     "read as if it were; BDF does not read it so.",
     "A slip: '$edn', '$ end', or 'end' without its dollar sign.", "Write '$end'.",
     "$scf\nrhf\n$edn\n", "$scf\nrhf\n$end\n", error},
    {"frame.misspelt_terminator",
     "A line that can only be the end of a block or of the geometry is not written as it must be. "
     "The rest of the input is read as if it were; BDF does not read it so.",
     "A slip or a shorter form: 'End Geom', 'EndGeometry' and 'end' do not count.",
     "Write the line that the message names.", "$compass\ngeometry\n  Ne 0 0 0\nend geom\n$end\n",
     "$compass\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n", error},
    {"frame.misspelt_geometry",
     "The line that opens the atoms is misspelt. They are read as if it were right; BDF does not "
     "find them.",
     "A slip in 'Geometry'.", "Write 'Geometry'.",
     "#! neon\nhf/sto-3g\nGemoetry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"frame.misspelt_block",
     "The keyword that opens a block is misspelt: the line that ends the block stands behind it. "
     "The block is read as if it were right.",
     "A slip in the keyword.", "Write the keyword that the message names.",
     "$compass\nbasis-blcok\n  Ne=sto-3g\nend basis\n$end\n",
     "$compass\nbasis-block\n  Ne=sto-3g\nend basis\n$end\n", error},
    {"frame.missing_dollar",
     "The name of a module stands alone on a line, and its entries or its end follow, but it lacks "
     "the dollar sign that makes it a header.",
     "The sign was forgotten.", "Write '$' before the name.", "scf\nrhf\n$end\n",
     "$scf\nrhf\n$end\n", error},
    {"frame.wide_dollar",
     "A sign that looks like a dollar sign stands before a module's name or 'end': a full-width "
     "one, of another code.",
     "It was typed with an input method for Chinese or Japanese, or copied from a formatted page.",
     "Type '$' as plain ASCII.", "\xEF\xBC\x84scf\nrhf\n$end\n", "$scf\nrhf\n$end\n", error},
    {"frame.spaced_header",
     "A blank or a second sign stands between the dollar sign and the name of a module.",
     "A slip, or the prompt of a shell before the line.", "Write '$' and the name without a blank.",
     "$ scf\nrhf\n$end\n", "$scf\nrhf\n$end\n"},
    {"frame.missing_database_end",
     "The data behind '&database' have no line '&end' behind them, or one that is misspelt.",
     "The line was forgotten, or written as another program has it.", "Write '&end'.",
     "$compass\nnfragment\n  1\n$end\n&database\nfragment 1 2\n1 2\n$end\n",
     "$compass\nnfragment\n  1\n$end\n&database\nfragment 1 2\n1 2\n&end\n"},
    {"frame.stray_end", "A line '$end' stands outside the modules.",
     "The line stands there twice, or the header of its module is missing.",
     "Remove it, or write the header.", "$scf\nrhf\n$end\n$end\n", "$scf\nrhf\n$end\n"},
    {"frame.stray_line",
     "Words stand before the first module that are neither a header nor a module, and no method "
     "and no geometry follow them; or, as a warning, lines stand between or behind the modules and "
     "belong to none.",
     "A title, output or a command was left in the file, or a module was ended too early.",
     "Remove the lines, begin them with '#', or move them into their module.",
     "water in vacuum\n$scf\nrhf\n$end\n", "# water in vacuum\n$scf\nrhf\n$end\n", error},
    {"frame.missing_header",
     "Lines stand in no module, and an '$end' follows them: they are those of a module whose "
     "header "
     "is not there.",
     "The header was deleted by mistake, or an '$end' before the lines is too much.",
     "Write the header.", "rhf\ncharge\n  1\n$end\n", "$scf\nrhf\ncharge\n  1\n$end\n", error},
    {"frame.missing_opening",
     "Atoms and the line that ends a geometry stand there, but no line that opens it.",
     "The line was deleted by mistake, or never written.",
     "Write 'geometry' before the first atom.",
     "$compass\nbasis\n  sto-3g\n  Ne 0 0 0\nend geometry\n$end\n",
     "$compass\nbasis\n  sto-3g\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n", error},
    {"frame.no_input", "The text has neither a header nor a module.",
     "An input of another program was given.",
     "Give an input of BDF: a header with method and geometry, or modules.", "%chk=a\nhello\n",
     "$scf\nrhf\n$end\n", error},
    {"frame.misspelt_setting",
     "A line that can only bound the settings of modules is not written as it must be.",
     "A slip: 'Module Settings', 'EndSetting'.", "Write 'Module Setting' or 'End Setting'.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\nModule Setting\n$scf\nmaxiter\n  "
     "50\n$end\nEnd Settings\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\nModule Setting\n$scf\nmaxiter\n  "
     "50\n$end\nEnd Setting\n",
     error},
    {"frame.missing_setting_end",
     "The settings of modules begin with a line 'Module Setting', but no 'End Setting' follows.",
     "The line was forgotten.", "Add a line 'End Setting' behind the last module.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\nModule Setting\n$scf\nmaxiter\n  "
     "50\n$end\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\nModule Setting\n$scf\nmaxiter\n  "
     "50\n$end\nEnd Setting\n"},
    {"frame.missing_setting_begin",
     "The settings of modules end with a line 'End Setting', but no 'Module Setting' begins them.",
     "The line was forgotten, or the other one was left.",
     "Add a line 'Module Setting' before the first module.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\n$scf\nmaxiter\n  50\n$end\nEnd "
     "Setting\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n\nModule Setting\n$scf\nmaxiter\n  "
     "50\n$end\nEnd Setting\n"},
    {"frame.shell_script", "The text is a script for a shell, perhaps with an input inside.",
     "The job script was given in place of the input that it runs.",
     "Give the input itself; where the script holds it, put it in a file of its own.",
     "#!/bin/bash\nbdf water.inp\n", "$scf\nrhf\n$end\n", error},
    {"frame.other_program", "The text is an input of another program.",
     "The file of the program that one is coming from was given.",
     "Write an input of BDF; the atoms may be taken over.",
     "! HF def2-SVP\n* xyz 0 1\nNe 0 0 0\n*\n",
     "#! neon\nhf/def2-svp\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"frame.atoms_alone", "The text is a file of atoms (XYZ): nothing in it says what to compute.",
     "The geometry was given in place of the input that it is for.",
     "Write the atoms into the block of an input, or name the file there.",
     "1\nneon\nNe 0.0 0.0 0.0\n",
     "#! neon\nhf/def2-svp\nGeometry\n  Ne 0.0 0.0 0.0\nEnd Geometry\n", error},
});

}  // namespace

std::span<const FindingText> frame_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
