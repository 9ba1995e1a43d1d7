" Vim syntax file
" Language: input of the BDF quantum-chemistry program
" made by scripts/make-grammars from schemas/input/bdf.yaml; changes belong there

if exists('b:current_syntax')
  finish
endif
syn case ignore
syn spell notoplevel

syn match bdfKeyword /\V\%(\^\|\s\)\zs\%(mpec+cosx\|spinadapt\|spinmulti\|xcfuntype\|hamilton\|opt+freq\|scan+opt\|skeleton\|spinflip\|spinmult\|optfreq\|scanopt\|solvent\|ts+freq\|charge\|direct\|energy\|group\|guess\|iroot\|nroot\|xcfun\|freq\|scan\|spin\|unit\|irc\|isf\|nac\|opt\|scf\|soc\|ri\)\ze\%(\[ \t=#]\|\$\)/
syn match bdfMethod /\V\%(\^\|\s\)\zs\[^ \t\/=#]\+\%(\/\[^ \t\/=#]\+\)\+/
syn match bdfNumber /\v%(^|[ \t,=(])@1<=[+-]?%(\d+\.?\d*|\.\d+)%([ed][+-]?\d+)?\ze%([ \t,=)#]|$)/
syn match bdfAtom contained /\v^\s*\zs[a-z][a-z0-9_*+-]*\ze%([ \t,]|$)/
syn match bdfComment /\V#\.\*/
syn match bdfComment /\V\^\s\**\.\*/
syn match bdfScript /\V\^\s\*#!\.\*/
syn match bdfShell /\V\^\s\*%\.\*/
syn region bdfDatabase keepend fold matchgroup=bdfBlock start=/\V\^\s\*&database\>/ end=/\V\^\s\*&end\>/ contains=bdfComment,bdfNumber
syn region bdfGeometry keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(geometry\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*geom\w\*\>/ end=/\V\^\s\*$/me=s-1 contains=bdfAtom,bdfComment,bdfNumber

syn region bdfOther keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(end\>\)\@!\S\+/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfComment,bdfNumber
syn match bdfModule0Entry contained /\V\^\s\*\zs\%(basis-block\|basis-multi\|uncontract\|extcharge\|mpec+cosx\|nfragment\|primitive\|atommass\|geometry\|norotate\|skeleton\|kratzer\|restart\|expbas\|nosymm\|thresh\|basis\|check\|group\|nosym\|saorb\|title\|units\|ri-c\|ri-j\|ri-k\|unit\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule0Entry bdfEntry
syn region bdfModule0Block0 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(basis-block\|basis-multi\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*basis\>/ end=/\V\^\s\*$/me=s-1 contains=bdfComment,bdfNumber
syn region bdfModule0Block1 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(geometry\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*geom\w\*\>/ end=/\V\^\s\*$/me=s-1 contains=bdfAtom,bdfComment,bdfNumber
syn region bdfModule0 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(compass\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule0Entry,bdfModule0Block0,bdfModule0Block1,bdfComment,bdfNumber
syn match bdfModule1Entry contained /\V\^\s\*\zs\%(nuclearradii\|cholesky\|schwartz\|nuclear\|rsomega\|schwarz\|clight\|direct\|maxmem\|heff\|hsoc\|rs\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule1Entry bdfEntry
syn region bdfModule1 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(xuanyuan\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule1Entry,bdfComment,bdfNumber
syn match bdfModule2Entry contained /\V\^\s\*\zs\%(sadguessaverageoutpartiallyfilledshellfor\|sadguessaverageoutpartiallyfilledshell\|donotorthogonalizediiserrormatrix\|sadguessaverageoutvalenceshellfor\|sadguessaverageoutvalenceshell\|orthogonalizediiserrormatrix\|disableapproxsecondorderscf\|electronegativehalogenicity\|enableapproxsecondorderscf\|surfacetensionatinterface\|acidhradiusforcavenergy\|approxsecondorderconfig\|disablesecondorderscf\|solventatomicsasradii\|enablesecondorderscf\|carbonaromaticity\|opticaldielectric\|radiiforcavenergy\|secondorderconfig\|cavityprecision\|refractiveindex\|xiisalgorithmid\|adiisplusdiis\|ediisplusdiis\|hbondbasicity\|partitiontype\|sadavgpartfor\|solventradius\|threshconverg\|cosmofactork\|coulpot+cosx\|hbondacidity\|nodirectgrid\|nogridswitch\|restrainspin\|sadavgvalfor\|solventatoms\|acidhradius\|cavityngrid\|checklinear\|coulpotlmax\|noorthguess\|coulpottol\|dielectric\|directgrid\|numinttype\|radiustype\|sadavgpart\|solventrho\|threshconv\|cosmosave\|cosxngrid\|lowdinlin\|mpec+cosx\|nosymgrid\|optscreen\|sadavgval\|smeartemp\|spinmulti\|threshbss\|threshrho\|checklin\|cosxctrl\|cosxgrid\|diismode\|gridtype\|nodeltap\|noscforb\|occupied\|pinalpha\|pyscforb\|solmodel\|vdwscale\|xiismode\|atomorb\|cosxthr\|coulpot\|gridtol\|hpalpha\|iaufbau\|maxdiis\|maxiter\|maxxiis\|mindiis\|minxiis\|oneiter\|pinbeta\|rsomega\|solvent\|blkeps\|blkiop\|cavity\|charge\|d3zero\|hpbeta\|ifpair\|ioitot\|iprtmo\|mixorb\|molden\|nodiis\|nonels\|noxiis\|nptang\|nptrad\|occupy\|relefg\|sepejk\|sepexc\|thrden\|threne\|tollin\|vshift\|xiisid\|adiis\|alpha\|ediis\|facco\|facex\|guess\|hbeta\|iviop\|lciis\|nosmh\|print\|radii\|reled\|beta\|cosx\|damp\|diis\|emit\|flmo\|grid\|iprt\|mpec\|rohf\|roks\|spin\|sylv\|uatm\|dft\|rhf\|rks\|smh\|uhf\|uks\|d3\|rs\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule2Entry bdfEntry
syn region bdfModule2Block0 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(cosxngrid\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*grid\>/ end=/\V\^\s\*$/me=s-1 contains=bdfComment,bdfNumber
syn match bdfModule2Block1Entry contained /\V\^\s\*\zs\%(maxconjugategradientiterationcycle\|excludenonoccupiesfromrotation\|includenonoccupiesinrotation\|scfconvergegradientthreshold\|levelshiftgradientthreshold\|convergegradientthreshold\|convergerotationthreshold\|maxdavidsoniterationcycle\|linearsolvertolerance\|quasinewtonalgorithm\|initialtrustradius\|maxiterationcycle\|enableexpression\|correctiontype\|forbidconverge\|maxtrustradius\|allowconverge\|disable\|enable\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule2Block1Entry bdfEntry
syn region bdfModule2Block1 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(secondorderconfig\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*endsecondorderconfig\>/ end=/\V\^\s\*$/me=s-1 contains=bdfModule2Block1Entry,bdfComment,bdfNumber
syn match bdfModule2Block2Entry contained /\V\^\s\*\zs\%(maxconjugategradientiterationcycle\|excludenonoccupiesfromrotation\|includenonoccupiesinrotation\|scfconvergegradientthreshold\|levelshiftgradientthreshold\|convergegradientthreshold\|convergerotationthreshold\|maxdavidsoniterationcycle\|linearsolvertolerance\|quasinewtonalgorithm\|initialtrustradius\|maxiterationcycle\|enableexpression\|correctiontype\|forbidconverge\|maxtrustradius\|allowconverge\|disable\|enable\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule2Block2Entry bdfEntry
syn region bdfModule2Block2 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(approxsecondorderconfig\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*endapproxsecondorderconfig\>/ end=/\V\^\s\*$/me=s-1 contains=bdfModule2Block2Entry,bdfComment,bdfNumber
syn region bdfModule2 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(scf\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule2Entry,bdfModule2Block0,bdfModule2Block1,bdfModule2Block2,bdfComment,bdfNumber
syn match bdfModule3Entry contained /\V\^\s\*\zs\%(partitiontype\|coulpot+cosx\|coulpotlmax\|imemshrink\|kernelctrl\|ntoanalyze\|numinttype\|cosx_ctrl\|cosxngrid\|grimmestd\|mpec+cosx\|cosxctrl\|cosxgrid\|crit_vec\|denscube\|iaotddft\|icorrect\|solneqlr\|solneqss\|cosxthr\|coulpot\|cubexyz\|frzcore\|frzvirt\|gridtol\|imatrsf\|imatrso\|imatsoc\|imethod\|iwindow\|lefteig\|memjkop\|soleqlr\|soleqss\|trddens\|crit_e\|iguess\|iprint\|istore\|itrans\|nfiles\|nptang\|nptrad\|aokxc\|cthrd\|ialda\|idiag\|iexit\|iroot\|istab\|itest\|iviop\|maxld\|nroot\|cosx\|grid\|iact\|ifgs\|iprt\|isoc\|itda\|nprt\|ecd\|elw\|eup\|isf\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule3Entry bdfEntry
syn region bdfModule3Block0 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(cosxngrid\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*grid\>/ end=/\V\^\s\*$/me=s-1 contains=bdfComment,bdfNumber
syn region bdfModule3 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(tddft\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule3Entry,bdfModule3Block0,bdfComment,bdfNumber
syn match bdfModule4Entry contained /\V\^\s\*\zs\%(coulpot+cosx\|coulpotlmax\|coulpottol\|jahnteller\|numinttype\|mpec+cosx\|solneqlr\|solneqss\|cosxthr\|coulpot\|gridtol\|imethod\|isolver\|soleqlr\|soleqss\|double\|ignore\|maxmem\|method\|nfiles\|norder\|noresp\|nptang\|nptrad\|reusez\|single\|states\|iroot\|pairs\|fnac\|geom\|grid\|iprt\|irep\|line\|quad\|rtol\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule4Entry bdfEntry
syn region bdfModule4 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(resp\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule4Entry,bdfComment,bdfNumber
syn match bdfModule5Entry contained /\V\^\s\*\zs\%(nrootgrad\|printgrad\|maxiter\|cutcpm\|intcre\|ishell\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule5Entry bdfEntry
syn region bdfModule5 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(grad\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule5Entry,bdfComment,bdfNumber
syn match bdfModule6Entry contained /\V\^\s\*\zs\%(nodeletegradfiles\|ncorepergrad\|dimer-block\|numhessstep\|restarthess\|constraint\|multistate\|recalchess\|removeimag\|usenumhess\|constrain\|geometry2\|neb-block\|noncouple\|o1numhess\|maxcycle\|noncoupl\|readhess\|parhess\|tolgrad\|tolstep\|frozen\|icoord\|imulti\|nframe\|npress\|rmimag\|solver\|tolene\|update\|dimer\|iline\|nmsym\|ntemp\|press\|qrrho\|scale\|sctol\|trust\|dmax\|hess\|iopt\|iprt\|ndeg\|scan\|temp\|neb\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule6Entry bdfEntry
syn match bdfModule6Block0Entry contained /\V\^\s\*\zs\%(nointerpolation\|crude\|delta\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule6Block0Entry bdfEntry
syn region bdfModule6Block0 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(dimer-block\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*dimer\>/ end=/\V\^\s\*$/me=s-1 contains=bdfModule6Block0Entry,bdfComment,bdfNumber
syn match bdfModule6Block1Entry contained /\V\^\s\*\zs\%(nebmode\|nimage\|crude\|nebk\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule6Block1Entry bdfEntry
syn region bdfModule6Block1 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(neb-block\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*neb\>/ end=/\V\^\s\*$/me=s-1 contains=bdfModule6Block1Entry,bdfComment,bdfNumber
syn region bdfModule6Block2 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(geometry2\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*geom\w\*\>/ end=/\V\^\s\*$/me=s-1 contains=bdfAtom,bdfComment,bdfNumber
syn region bdfModule6 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(bdfopt\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule6Entry,bdfModule6Block0,bdfModule6Block1,bdfModule6Block2,bdfComment,bdfNumber
syn match bdfModule7Entry contained /\V\^\s\*\zs\%(ircalpha\|ircdir\|ircpts\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule7Entry bdfEntry
syn region bdfModule7 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(irc\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule7Entry,bdfComment,bdfNumber
syn match bdfModule8Entry contained /\V\^\s\*\zs\%(coulpotlmax\|cphf_con\|cgcoord\|esptype\|nmrgrid\|cgunit\|igatom\|igiao\|icg\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule8Entry bdfEntry
syn region bdfModule8Block0 contained keepend fold matchgroup=bdfBlock start=/\V\^\s\*\%(nmrgrid\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*end\s\*grid\>/ end=/\V\^\s\*$/me=s-1 contains=bdfComment,bdfNumber
syn region bdfModule8 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(nmr\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule8Entry,bdfModule8Block0,bdfComment,bdfNumber
syn match bdfModule9Entry contained /\V\^\s\*\zs\%(iprtmo\|molden\|nature\|fos\|fss\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule9Entry bdfEntry
syn region bdfModule9 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(mp2\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule9Entry,bdfComment,bdfNumber
syn match bdfModule10Entry contained /\V\^\s\*\zs\%(electrans\|enertrans\|locales\|iprint\|nexcit\|orthmo\|gsapr\|iprt\|dft\|uhf\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule10Entry bdfEntry
syn region bdfModule10 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(elecoup\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule10Entry,bdfComment,bdfNumber
syn match bdfModule11Entry contained /\V\^\s\*\zs\%(directgrid\|hybridboys\|hybridthre\|threshpop\|maxcycle\|mulliken\|nolmocls\|nolmovir\|analyze\|frozocc\|frozvir\|orbital\|orbread\|rohfloc\|tailcut\|iapair\|jacobi\|lowdin\|thresh\|mboys\|moprt\|pipek\|trust\|boys\|flmo\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule11Entry bdfEntry
syn region bdfModule11 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(localmo\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule11Entry,bdfComment,bdfNumber
syn match bdfModule12Entry contained /\V\^\s\*\zs\%(maxcycle\|nolmoact\|nolmocls\|nolmovir\|highsym\|localmo\|overcri\|overlap\|active\|lowdin\|minbas\|s12cmo\|thresh\|cdloc\|close\|mboys\|phosp\|pipek\|sb2lb\|sbolb\|trust\|acte\|avas\|boys\|core\|vcmo\|vlmo\|vsd\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule12Entry bdfEntry
syn region bdfModule12 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(expandmo\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule12Entry,bdfComment,bdfNumber
syn match bdfModule13Entry contained /\V\^\s\*\zs\%(nooverlapmetric\|noncovalent\|ioithresh\|sobedaw_a\|sobedaw_c\|sobedaw_r\|fragdef\|maxiter\|radbuff\|radcent\|spinocc\|charge\|dryrun\|method\|nprocs\|nopho\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule13Entry bdfEntry
syn region bdfModule13 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(autofrag\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule13Entry,bdfComment,bdfNumber
syn match bdfModule14Entry contained /\V\^\s\*\zs\%(reference\|electron\|inactive\|symmetry\|active\|nactel\|ciall\|title\|spin\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule14Entry bdfEntry
syn region bdfModule14 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(drt\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule14Entry,bdfComment,bdfNumber
syn match bdfModule15Entry contained /\V\^\s\*\zs\%(switchconv\|switchiter\|mcvgmfci\|nolmoact\|nolmocls\|nolmovir\|symmetry\|hungary\|localmc\|maxstep\|ncisave\|orbonly\|prtiter\|rootprt\|solvate\|sortact\|statemo\|superci\|ucutoff\|actadd\|actele\|actfrz\|active\|actmin\|actopt\|automc\|ciiter\|cionly\|ciread\|delete\|direct\|icipt2\|iprtmo\|mixopt\|molden\|nature\|nmocri\|prtcri\|qndiis\|soccas\|soccri\|socene\|virdel\|werner\|xvrset\|xvruse\|actel\|casci\|close\|guess\|macit\|micit\|mixci\|ploop\|quasi\|roots\|cmin\|conv\|core\|diis\|grad\|guga\|icas\|node\|nref\|nvff\|qcmo\|spin\|cvs\|ici\|mom\|svd\|wei\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule15Entry bdfEntry
syn region bdfModule15 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(mcscf\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule15Entry,bdfComment,bdfNumber
syn match bdfModule16Entry contained /\V\^\s\*\zs\%(convergence\|printthresh\|maxiter\|nrroots\|cipro\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule16Entry bdfEntry
syn region bdfModule16 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(mrci\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule16Entry,bdfComment,bdfNumber
syn match bdfModule17Entry contained /\V\^\s\*\zs\%(nelectron\|symmetry\|fcidump\|orbital\|frozen\|occupy\|utddft\|alpha\|tddft\|beta\|spin\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule17Entry bdfEntry
syn region bdfModule17 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(traint\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule17Entry,bdfComment,bdfNumber
syn match bdfModule18Entry contained /\V\^\s\*\zs\%(emethod\|maxiter\|nstate\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule18Entry bdfEntry
syn region bdfModule18 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(vgmfci\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule18Entry,bdfComment,bdfNumber
syn match bdfModule19Entry contained /\V\^\s\*\zs\%(mr-cbmrpt2\|inith0dav\|mr-nevpt2\|nosaveact\|rmscaspt2\|setblkact\|xdwcaspt2\|xmscaspt2\|electron\|inactive\|inithdav\|maxbloch\|nosavelp\|setlpact\|symmetry\|cbmprt2\|cbmrpt2\|cbmrpt3\|depenst\|maxiter\|ncisave\|readdrt\|readref\|rootprt\|saveact\|sdspt2f\|seleref\|setloop\|xdwpara\|active\|caspt2\|dbloch\|doprop\|ethres\|frozen\|ishift\|istate\|nevpt2\|nevpt3\|novdvp\|nroots\|orbtxt\|prtcri\|qmindv\|qminvd\|rshift\|safock\|sdfock\|sdscif\|sdspt2\|setblk\|ssfock\|xsdsci\|xvruse\|cipro\|ddils\|ddrls\|dolan\|dvils\|dvrls\|dylan\|nexci\|nolan\|roots\|sdsci\|vdils\|vdrls\|conv\|core\|cwci\|dcri\|dele\|epcc\|epic\|fcci\|nici\|node\|pmin\|qfix\|qnex\|sdci\|spin\|ucci\|wkci\|cvs\|ils\|rls\|vsd\)\ze\%(\[ \t#,=]\|\$\)/
hi def link bdfModule19Entry bdfEntry
syn region bdfModule19 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(xianci\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfModule19Entry,bdfComment,bdfNumber
syn region bdfModule20 keepend fold matchgroup=bdfModule start=/\V\^\s\*$\%(numgrad\)\ze\%(\s\|#\|\$\)/ end=/\V\^\s\*$end\>/ end=/\V\^\ze\s\*$\%(end\>\)\@!/me=s-1 contains=bdfComment,bdfNumber

hi def link bdfModule Statement
hi def link bdfBlock Keyword
hi def link bdfEntry Identifier
hi def link bdfKeyword Identifier
hi def link bdfMethod Function
hi def link bdfNumber Number
hi def link bdfAtom Type
hi def link bdfComment Comment
hi def link bdfScript PreProc
hi def link bdfShell PreProc

syn sync fromstart
let b:current_syntax = 'bdf'
