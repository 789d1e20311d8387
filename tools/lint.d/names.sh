# A file's name says which file it is: no two C++ files or documents of one name. Every program begins in a
# main.cpp of its own folder.
check_names() {
    matching '\.(h|cpp|md)$' | awk -F/ '
        $NF != "main.cpp" { paths[$NF] = paths[$NF] " " $0; ++count[$NF] }
        END { for (name in count) if (count[name] > 1) print name ":" paths[name] }' | sort
}
mend_names() { echo "name the file after what it holds"; }
