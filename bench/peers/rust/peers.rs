//! The crates memchr, aho-corasick and regex, for C. See rust_peers.h.
use aho_corasick::{AhoCorasick, AhoCorasickBuilder};
use memchr::{memchr, memchr_iter, memmem::Finder};
use regex::bytes::{Regex, RegexBuilder};
use std::ffi::c_void;

const NOWHERE: usize = usize::MAX;

type Found = extern "C" fn(*mut c_void, usize, usize);

unsafe fn bytes<'a>(text: *const u8, n: usize) -> &'a [u8] {
    std::slice::from_raw_parts(text, n)
}

#[no_mangle]
pub unsafe extern "C" fn rust_finder_new(pattern: *const u8, m: usize) -> *mut Finder<'static> {
    Box::into_raw(Box::new(Finder::new(bytes(pattern, m)).into_owned()))
}

#[no_mangle]
pub unsafe extern "C" fn rust_finder_free(finder: *mut Finder<'static>) {
    drop(Box::from_raw(finder))
}

#[no_mangle]
pub unsafe extern "C" fn rust_find(finder: &Finder, text: *const u8, n: usize) -> usize {
    let text = bytes(text, n);
    match finder.needle() {
        [byte] => memchr(*byte, text),
        _ => finder.find(text),
    }
    .unwrap_or(NOWHERE)
}

/// All occurrences, overlapping ones included.
#[no_mangle]
pub unsafe extern "C" fn rust_find_all(
    finder: &Finder,
    text: *const u8,
    n: usize,
    found: Found,
    context: *mut c_void,
) {
    let text = bytes(text, n);
    if let [byte] = finder.needle() {
        memchr_iter(*byte, text).for_each(|at| found(context, at, 0));
        return;
    }
    let mut from = 0;
    while let Some(at) = finder.find(&text[from..]) {
        found(context, from + at, 0);
        from += at + 1;
    }
}

#[no_mangle]
pub unsafe extern "C" fn rust_many_new(
    patterns: *const *const u8,
    lengths: *const usize,
    count: usize,
) -> *mut AhoCorasick {
    let patterns: Vec<&[u8]> =
        (0..count).map(|i| bytes(*patterns.add(i), *lengths.add(i))).collect();
    let automaton = AhoCorasickBuilder::new().auto_configure(&patterns).build(&patterns);
    Box::into_raw(Box::new(automaton))
}

#[no_mangle]
pub unsafe extern "C" fn rust_many_free(automaton: *mut AhoCorasick) {
    drop(Box::from_raw(automaton))
}

/// Where each occurrence begins, and its pattern, by where they end.
#[no_mangle]
pub unsafe extern "C" fn rust_many_all(
    automaton: &AhoCorasick,
    text: *const u8,
    n: usize,
    found: Found,
    context: *mut c_void,
) {
    automaton
        .find_overlapping_iter(bytes(text, n))
        .for_each(|each| found(context, each.start(), each.pattern()));
}

#[no_mangle]
pub unsafe extern "C" fn rust_many_has(automaton: &AhoCorasick, text: *const u8, n: usize) -> bool {
    automaton.is_match(bytes(text, n))
}

/// Null when the pattern is refused.
#[no_mangle]
pub unsafe extern "C" fn rust_regex_new(pattern: *const u8, m: usize) -> *mut Regex {
    let pattern = String::from_utf8_lossy(bytes(pattern, m));
    match RegexBuilder::new(&pattern).unicode(false).dot_matches_new_line(true).build() {
        Ok(regex) => Box::into_raw(Box::new(regex)),
        Err(_) => std::ptr::null_mut(),
    }
}

#[no_mangle]
pub unsafe extern "C" fn rust_regex_free(regex: *mut Regex) {
    if !regex.is_null() {
        drop(Box::from_raw(regex))
    }
}

#[no_mangle]
pub unsafe extern "C" fn rust_regex_has(regex: &Regex, text: *const u8, n: usize) -> bool {
    regex.is_match(bytes(text, n))
}

/// Hands the new text, as an address and a length, to `found`.
#[no_mangle]
pub unsafe extern "C" fn rust_regex_replace(
    regex: &Regex,
    text: *const u8,
    n: usize,
    template: *const u8,
    m: usize,
    found: Found,
    context: *mut c_void,
) {
    let result = regex.replace_all(bytes(text, n), bytes(template, m));
    found(context, result.as_ptr() as usize, result.len());
}

/// Where each match begins and ends.
#[no_mangle]
pub unsafe extern "C" fn rust_regex_matches(
    regex: &Regex,
    text: *const u8,
    n: usize,
    found: Found,
    context: *mut c_void,
) {
    regex.find_iter(bytes(text, n)).for_each(|each| found(context, each.start(), each.end()));
}
