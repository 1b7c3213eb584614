# The settings of the zsh that candidates.zsh controls.
PS1=
unset zle_bracketed_paste
fpath=($prefix/share/zsh/site-functions $fpath)
autoload -Uz compinit
compinit -u -D

offer_all()
{
    _main_complete
    count=$compstate[nmatches]
    compstate[insert]=all
    compstate[list]=
}
zle -C offer_all complete-word offer_all
bindkey '\t' offer_all

report()
{
    print -rl -- ${count:-0} "$BUFFER" >$reports
    BUFFER=
    count=0
}
zle -N report
bindkey '^T' report

print ready >$reports
