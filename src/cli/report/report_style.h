// How the report looks.
#pragma once

namespace vexnumkr::cli {

inline constexpr const char* reportStyle = R"css(
:root { color-scheme: light dark; --ground: #fff; --text: #1b1f24; --soft: #57606a;
  --line: #d0d7de; --bar: #2f6fb2; --warn: #9a6700; --bad: #b42318; --free: #eef2f6; }
@media (prefers-color-scheme: dark) { :root { --ground: #14181d; --text: #e6edf3; --soft: #9da7b1;
  --line: #39424c; --bar: #6cb0f5; --warn: #e3b341; --bad: #ff8b82; --free: #222a33; } }
* { box-sizing: border-box; }
body { margin: 2rem auto; padding: 0 1.5rem; max-width: 70rem; background: var(--ground);
  color: var(--text); font: 15px/1.5 system-ui, "Liberation Sans", sans-serif; }
h1 { margin: 0; font-size: 1.7rem; } h2 { margin: 2.2rem 0 .6rem; font-size: 1.2rem; }
h3 { margin: 1.2rem 0 .3rem; font-size: 1rem; }
p { margin: .3rem 0; } .soft { color: var(--soft); }
table { width: 100%; border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: .3rem .6rem; border-bottom: 1px solid var(--line); text-align: left;
  vertical-align: top; }
th { color: var(--soft); font-weight: 600; } .number { text-align: right; }
.level { white-space: nowrap; } .critical .level b { color: var(--bad); }
.wide { overflow-x: auto; } li, p { overflow-wrap: anywhere; } td { overflow-wrap: break-word; }
.bar { display: inline-block; vertical-align: baseline; width: 8rem; height: .75rem;
  margin-right: .6rem; background: var(--free); border: 1px solid var(--line);
  border-radius: .2rem; overflow: hidden; }
.bar span { display: block; height: 100%; background: var(--bar); }
.warning .bar span { background: var(--warn); } .critical .bar span { background: var(--bad); }
ul.findings { padding: 0; list-style: none; }
ul.findings li { margin: .3rem 0; padding: .3rem .7rem; border-left: .3rem solid var(--warn); }
ul.findings li.critical { border-color: var(--bad); }
ul.findings b { color: var(--warn); } ul.findings .critical b { color: var(--bad); }
.scale { position: relative; height: .75rem; margin: .4rem 0; background: var(--ground);
  border-bottom: 1px solid var(--soft); border-left: 1px solid var(--soft);
  border-right: 1px solid var(--soft); }
.scale span { position: absolute; bottom: 0; height: .6rem; min-width: 3px;
  background: var(--free); border: 1px solid var(--bar); border-bottom: 0; }
.scale i { display: block; height: 100%; background: var(--bar); }
.scale .warning { border-color: var(--warn); } .scale .critical { border-color: var(--bad); }
.scale .warning i { background: var(--warn); } .scale .critical i { background: var(--bad); }
.key { display: inline-block; min-width: 6.5rem; margin-right: .6rem; }
ol.line { display: flex; flex-wrap: wrap; align-items: stretch; gap: .2rem 0; margin: .3rem 0;
  padding: 0; list-style: none; font-variant-numeric: tabular-nums; }
ol.line li { padding: .2rem .6rem; border: 1px solid var(--line); font-size: .85rem; }
ol.line .range { background: var(--free); border-top: .25rem solid var(--bar); }
ol.line .gap { border-style: dashed; color: var(--soft); }
ol.line .overlap { border-color: var(--bad); color: var(--bad); }
@media (max-width: 40rem) { body { margin: 1rem auto; padding: 0 .8rem; font-size: 14px; }
  th, td { padding: .25rem .35rem; } .bar { width: 3rem; margin-right: .3rem; }
  .key { min-width: 0; } }
@page { margin: 14mm; @bottom-right { content: counter(page) " / " counter(pages);
  font: 9pt sans-serif; } }
@media print { :root { --ground: #fff; --text: #000; --soft: #444; --line: #999; --bar: #2f6fb2;
  --warn: #9a6700; --bad: #b42318; --free: #eef2f6; }
  body { margin: 0; max-width: none; font-size: 10pt; } tr, li, .sequence { break-inside: avoid; }
  .wide { overflow: visible; }
  h2, h3 { break-after: avoid; } .bar, .bar span, .scale span, .scale i, ol.line .range {
  print-color-adjust: exact; -webkit-print-color-adjust: exact; } }
)css";

}  // namespace vexnumkr::cli
