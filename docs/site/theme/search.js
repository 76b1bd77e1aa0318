// Search in the page itself, from an index that is a script: so it works without a server.
const root = document.currentScript.dataset.root;
const query = document.getElementById("query");
const found = document.getElementById("found");
let index;

function prepared() {
  index ||= lunr(function () {
    this.ref("location");
    this.field("title", { boost: 10 });
    this.field("text");
    this.pipeline.remove(lunr.stopWordFilter); // commands are called has, take, max
    for (const section of sections) this.add(section);
  });
  return index;
}

// What begins with the words typed; what is equal to them comes first.
function matches(words) {
  return prepared().query((q) => {
    for (const word of lunr.tokenizer(words)) {
      q.term(word, { boost: 10 });
      q.term(word, { wildcard: lunr.Query.wildcard.TRAILING, usePipeline: false });
    }
  });
}

function show() {
  const words = query.value.trim();
  found.hidden = words === "";
  found.replaceChildren();
  if (found.hidden) return;
  for (const match of matches(words).slice(0, 15)) {
    const section = sections.find((one) => one.location === match.ref);
    const link = document.createElement("a");
    link.href = root + "/" + section.location;
    link.append(section.title);
    const text = document.createElement("small");
    text.append(section.text.slice(0, 120));
    link.append(text);
    found.append(link);
  }
  if (!found.firstChild) {
    const nothing = document.createElement("p");
    nothing.append("Nothing found");
    found.append(nothing);
  }
}

query.addEventListener("input", show);
query.addEventListener("keydown", (event) => {
  if (event.key === "Enter") found.querySelector("a")?.click();
});
document.addEventListener("click", (event) => {
  if (event.target.closest("#found a") || !event.target.closest("header")) found.hidden = true;
});
document.addEventListener("keydown", (event) => {
  if (event.key === "Escape") found.hidden = true;
  if (event.key === "/" && event.target !== query) {
    event.preventDefault();
    query.focus();
  }
});
query.value = new URLSearchParams(location.search).get("q") || "";
window.addEventListener("load", () => query.value && show());
